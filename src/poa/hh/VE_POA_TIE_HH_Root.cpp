#include "VE_POA_TIE_HH_Root.h"

#include "AST_Root.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"

long VE_POA_TIE_HH_Root::visit(AST_Decl* d)
{
    AST_Root* root = AST_Root::narrow_from_decl(d);
    if (!root)
        throw Visitor_i::NarrowFailure(visitor(), d);
    iterateScope(root);
    return 1;
}

void VE_POA_TIE_HH_Root::iterateScope(UTL_Scope* s)
{
    // Interfaces of included files get no TIE class.
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(s, {AST_Decl::NT_module, AST_Decl::NT_interface}))
        if (d->in_main_file())
            d->accept(visitor());
}
