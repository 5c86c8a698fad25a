#include "VIS_CPP_MainStartPoint.h"

#include "AST_Decl.h"
#include "CxxTypeCodeWriter.h"
#include "UTL_Scope.h"
#include "VE_CPP_MainStartPoint_Interface.h"
#include "VE_CPP_MainStartPoint_Scope.h"
#include "VE_CPP_MainStartPoint_Type.h"
#include "VE_CPP_MainStartPoint_Value.h"

VIS_CPP_MainStartPoint::VIS_CPP_MainStartPoint(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen)
{
    // The element table takes each emitter over and deletes it with the visitor.
    add_element(Visitor::rootKey, new VE_CPP_MainStartPoint_Scope(this));
    add_element(Visitor::moduleKey, new VE_CPP_MainStartPoint_Scope(this));
    add_element(Visitor::interfaceKey, new VE_CPP_MainStartPoint_Interface(this));
    add_element(Visitor::valueKey, new VE_CPP_MainStartPoint_Value(this));
    add_element(Visitor::valueBoxKey, new VE_CPP_MainStartPoint_Value(this));
    add_element(Visitor::structureKey, new VE_CPP_MainStartPoint_Type(this));
    add_element(Visitor::unionKey, new VE_CPP_MainStartPoint_Type(this));
    add_element(Visitor::exceptionKey, new VE_CPP_MainStartPoint_Type(this));
    add_element(Visitor::enumKey, new VE_CPP_MainStartPoint_Type(this));
    add_element(Visitor::typedefKey, new VE_CPP_MainStartPoint_Type(this));
    add_element(Visitor::nativeKey, new VE_CPP_MainStartPoint_Type(this));
}

VIS_CPP_MainStartPoint::~VIS_CPP_MainStartPoint() = default;

void VIS_CPP_MainStartPoint::walk(UTL_Scope* s)
{
    for (const auto& d : s->decls())
        if (d->in_main_file())
            d->accept(this);
}

CxxTypeCodeWriter& VIS_CPP_MainStartPoint::typecodes()
{
    if (!m_typecodes)
        m_typecodes = std::make_unique<CxxTypeCodeWriter>(resolver());
    return *m_typecodes;
}
