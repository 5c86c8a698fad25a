#include "VE_POA_Impl_Module.h"

#include "AST_Module.h"
#include "GEN_POACxx.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"
#include "VE_POA_Impl_Root.h"
#include "VIS_POA_Impl.h"
#include "POA_VisitorFactories.h"

#include <memory>

long VE_POA_Impl_Module::visit(AST_Decl* d)
{
    AST_Module* module = AST_Module::narrow_from_decl(d);
    if (!module)
        throw Visitor_i::NarrowFailure(visitor(), d);
    iterateScope(module);
    return 1;
}

void VE_POA_Impl_Module::iterateScope(UTL_Scope* s)
{
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    VIS_POA_Impl_Factory* factory = VIS_POA_Impl_Factory::find_factory(gen->visitorFF());
    // The factory hands the new visitor over; it lives for this module only.
    std::unique_ptr<VIS_POA_Impl> inner(factory->create_VIS_POA_Impl(os(), indent().get_indent(), s, generator()));
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(s, VE_POA_Impl_Root::scope_filter()))
        d->accept(inner.get());
}
