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
    UTL_FilterList kinds;
    kinds.insertFilter(AST_Decl::NT_module);
    kinds.insertFilter(AST_Decl::NT_interface);
    kinds.insertFilter(AST_Decl::NT_cbe_specific);
    for (UTL_InclusiveFilteredScopeActiveIterator it(s, UTL_Scope::IK_decls, kinds); !it.is_done(); it.next())
        it.item()->accept(visitor());
}
