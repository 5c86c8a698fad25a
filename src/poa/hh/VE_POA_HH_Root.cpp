#include "VE_POA_HH_Root.h"

#include "AST_Root.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"

UTL_FilterList VE_POA_HH_Root::skeleton_kinds()
{
    return {AST_Decl::NT_module, AST_Decl::NT_interface, AST_Decl::NT_value, AST_Decl::NT_cbe_specific};
}

long VE_POA_HH_Root::visit(AST_Decl* d)
{
    AST_Root* root = AST_Root::narrow_from_decl(d);
    if (!root)
        throw Visitor_i::NarrowFailure(visitor(), d);
    iterateScope(root);
    return 1;
}

void VE_POA_HH_Root::iterateScope(UTL_Scope* s)
{
    // Declarations of included files get no skeleton text.
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(s, skeleton_kinds()))
        if (d->in_main_file())
            d->accept(visitor());
}
