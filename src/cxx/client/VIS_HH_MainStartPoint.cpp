#include "VIS_HH_MainStartPoint.h"

#include "AST_Decl.h"
#include "UTL_Scope.h"
#include "VE_HH_MainStartPoint_Constant.h"
#include "VE_HH_MainStartPoint_Enum.h"
#include "VE_HH_MainStartPoint_Exception.h"
#include "VE_HH_MainStartPoint_Interface.h"
#include "VE_HH_MainStartPoint_InterfaceFwd.h"
#include "VE_HH_MainStartPoint_Module.h"
#include "VE_HH_MainStartPoint_Native.h"
#include "VE_HH_MainStartPoint_Root.h"
#include "VE_HH_MainStartPoint_StructFwd.h"
#include "VE_HH_MainStartPoint_Structure.h"
#include "VE_HH_MainStartPoint_Typedef.h"
#include "VE_HH_MainStartPoint_Union.h"
#include "VE_HH_MainStartPoint_UnionFwd.h"
#include "VE_HH_MainStartPoint_Value.h"
#include "VE_HH_MainStartPoint_ValueBox.h"
#include "VE_HH_RuntimeDefined.h"

VIS_HH_MainStartPoint::VIS_HH_MainStartPoint(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen)
{
    // The element table takes each emitter over and deletes it with the visitor.
    // Interfaces, value types and typedefs see to names the runtime defines
    // themselves, forward declarations stay (the runtime's header may not
    // declare the names of the mapping they bring); the other kinds are
    // passed over by VE_HH_RuntimeDefined.
    add_element(Visitor::rootKey, new VE_HH_MainStartPoint_Root(this));
    add_element(Visitor::moduleKey, new VE_HH_MainStartPoint_Module(this));
    add_element(Visitor::interfaceKey, new VE_HH_MainStartPoint_Interface(this));
    add_element(Visitor::interfaceFwdKey, new VE_HH_MainStartPoint_InterfaceFwd(this));
    add_element(Visitor::valueKey, new VE_HH_MainStartPoint_Value(this));
    add_element(Visitor::valueFwdKey, new VE_HH_MainStartPoint_ValueFwd(this));
    add_element(Visitor::valueBoxKey, new VE_HH_RuntimeDefined(this, new VE_HH_MainStartPoint_ValueBox(this)));
    add_element(Visitor::structureKey, new VE_HH_RuntimeDefined(this, new VE_HH_MainStartPoint_Structure(this)));
    add_element(Visitor::structFwdKey, new VE_HH_RuntimeDefined(this, new VE_HH_MainStartPoint_StructFwd(this)));
    add_element(Visitor::unionKey, new VE_HH_RuntimeDefined(this, new VE_HH_MainStartPoint_Union(this)));
    add_element(Visitor::unionFwdKey, new VE_HH_RuntimeDefined(this, new VE_HH_MainStartPoint_UnionFwd(this)));
    add_element(Visitor::enumKey, new VE_HH_RuntimeDefined(this, new VE_HH_MainStartPoint_Enum(this)));
    add_element(Visitor::constantKey, new VE_HH_RuntimeDefined(this, new VE_HH_MainStartPoint_Constant(this)));
    add_element(Visitor::exceptionKey, new VE_HH_RuntimeDefined(this, new VE_HH_MainStartPoint_Exception(this)));
    add_element(Visitor::typedefKey, new VE_HH_MainStartPoint_Typedef(this));
    add_element(Visitor::nativeKey, new VE_HH_RuntimeDefined(this, new VE_HH_MainStartPoint_Native(this)));
}

VIS_HH_MainStartPoint::~VIS_HH_MainStartPoint() = default;

void VIS_HH_MainStartPoint::write_scope(std::ostream& os, int level, UTL_Scope* s, CodeGenerator* gen)
{
    VIS_HH_MainStartPoint contents(os, level, s, gen);
    for (const auto& d : s->decls())
        if (d->in_main_file())
            d->accept(&contents);
}

void VIS_HH_MainStartPoint::write_one(std::ostream& os, int level, AST_Decl* d, CodeGenerator* gen)
{
    VIS_HH_MainStartPoint one(os, level, d->defined_in(), gen);
    d->accept(&one);
}
