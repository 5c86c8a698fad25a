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
    UTL_FilterList kinds;
    kinds.insertFilter(AST_Decl::NT_module);
    kinds.insertFilter(AST_Decl::NT_interface);
    // Interfaces of included files get no TIE class.
    for (UTL_InclusiveFilteredScopeActiveIterator it(s, UTL_Scope::IK_decls, kinds); !it.is_done(); it.next())
        if (it.item()->in_main_file())
            it.item()->accept(visitor());
}
