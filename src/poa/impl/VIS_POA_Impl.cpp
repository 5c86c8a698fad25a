#include "VIS_POA_Impl.h"

#include "VE_POA_HH_Default.h"
#include "VE_POA_Impl_CBE_Specific.h"
#include "VE_POA_Impl_Interface.h"
#include "VE_POA_Impl_Module.h"
#include "VE_POA_Impl_Root.h"
#include "VE_POA_Impl_Value.h"
#include "POA_VisitorFactories.h"

VIS_POA_Impl::VIS_POA_Impl(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen)
    : Visitor_i(scope, gen), VIS_Cxx(os, level, scope, gen)
{
    // add_element takes over each emitter; the visitor deletes them.
    add_element(Visitor::rootKey, new VE_POA_Impl_Root(this));
    add_element(Visitor::moduleKey, new VE_POA_Impl_Module(this));
    add_element(Visitor::interfaceKey, new VE_POA_Impl_Interface(this));
    add_element(Visitor::valueKey, new VE_POA_Impl_Value(this));
    add_element(Visitor::valueBoxKey, new VE_POA_HH_Default(this));
    add_element(Visitor::CBE_specificKey, new VE_POA_Impl_CBE_Specific(this));
}

VIS_POA_Impl::~VIS_POA_Impl() = default;

const char* VIS_POA_Impl::name()
{
    return VIS_POA_Impl_Factory::FFKey;
}
