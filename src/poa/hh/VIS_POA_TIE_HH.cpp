#include "VIS_POA_TIE_HH.h"

#include "VE_POA_HH_CBE_Specific.h"
#include "VE_POA_TIE_HH_Interface.h"
#include "VE_POA_TIE_HH_Module.h"
#include "VE_POA_TIE_HH_Root.h"
#include "POA_VisitorFactories.h"

VIS_POA_TIE_HH::VIS_POA_TIE_HH(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen)
{
    // The element table takes each emitter over and deletes it with the visitor.
    add_element(Visitor::rootKey, new VE_POA_TIE_HH_Root(this));
    add_element(Visitor::moduleKey, new VE_POA_TIE_HH_Module(this));
    add_element(Visitor::interfaceKey, new VE_POA_TIE_HH_Interface(this));
    add_element(Visitor::CBE_specificKey, new VE_POA_HH_CBE_Specific(this));
}

VIS_POA_TIE_HH::~VIS_POA_TIE_HH() = default;

const char* VIS_POA_TIE_HH::name() { return VIS_POA_TIE_HH_Factory::FFKey; }
