#include "VE_POA_Impl_Root.h"

#include "AST_Root.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"

UTL_FilterList VE_POA_Impl_Root::scope_filter()
{
    return {AST_Decl::NT_module, AST_Decl::NT_interface, AST_Decl::NT_value, AST_Decl::NT_cbe_specific};
}

long VE_POA_Impl_Root::visit(AST_Decl* d)
{
    AST_Root* root = AST_Root::narrow_from_decl(d);
    if (!root)
        throw Visitor_i::NarrowFailure(visitor(), d);
    iterateScope(root);
    return 1;
}

// Declarations of included files are skipped at file level only; inside a
// module of the main file everything is visited.
void VE_POA_Impl_Root::iterateScope(UTL_Scope* s)
{
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(s, scope_filter()))
        if (d->in_main_file())
            d->accept(visitor());
}
