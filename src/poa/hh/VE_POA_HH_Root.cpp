#include "VE_POA_HH_Root.h"

#include "AST_Root.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"

UTL_FilterList VE_POA_HH_Root::skeleton_kinds()
{
    UTL_FilterList kinds;
    kinds.insertFilter(AST_Decl::NT_module);
    kinds.insertFilter(AST_Decl::NT_interface);
    kinds.insertFilter(AST_Decl::NT_value);
    kinds.insertFilter(AST_Decl::NT_cbe_specific);
    return kinds;
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
    for (UTL_InclusiveFilteredScopeActiveIterator it(s, UTL_Scope::IK_decls, skeleton_kinds()); !it.is_done(); it.next())
        if (it.item()->in_main_file())
            it.item()->accept(visitor());
}
