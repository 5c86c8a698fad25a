#include "VE_POA_Impl_Root.h"

#include "AST_Root.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"

UTL_FilterList VE_POA_Impl_Root::scope_filter()
{
    UTL_FilterList filter;
    filter.insertFilter(AST_Decl::NT_module);
    filter.insertFilter(AST_Decl::NT_interface);
    filter.insertFilter(AST_Decl::NT_value);
    filter.insertFilter(AST_Decl::NT_cbe_specific);
    return filter;
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
    for (UTL_InclusiveFilteredScopeActiveIterator it(s, UTL_Scope::IK_decls, scope_filter()); !it.is_done(); it.next()) {
        if (it.item()->in_main_file())
            it.item()->accept(visitor());
    }
}
