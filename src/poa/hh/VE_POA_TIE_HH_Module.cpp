#include "VE_POA_TIE_HH_Module.h"

#include "AST_Module.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"

long VE_POA_TIE_HH_Module::visit(AST_Decl* d)
{
    AST_Module* m = AST_Module::narrow_from_decl(d);
    if (!m)
        throw Visitor_i::NarrowFailure(visitor(), d);
    iterateScope(m);
    return 1;
}

void VE_POA_TIE_HH_Module::iterateScope(UTL_Scope* s)
{
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(
             s, {AST_Decl::NT_module, AST_Decl::NT_interface, AST_Decl::NT_cbe_specific}))
        d->accept(visitor());
}
