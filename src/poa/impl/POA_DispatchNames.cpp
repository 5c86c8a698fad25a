#include "POA_DispatchNames.h"

#include "AST_Operation.h"
#include "CxxNaming.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"

POA_DispatchNames::POA_DispatchNames()
    : servant(yvparam("servant")), request(yvparam("request")), status(yvparam("status")), intf(yvlocalvar("intf")),
      nvlist(yvlocalvar("nvlist")), any(yvlocalvar("any")), result(yvlocalvar("result")),
      target_orb(yvlocalvar("target_orb")), retn(yvlocalvar("retn")), retn_any(yvlocalvar("retn_any")),
      named_values(yvlocalvar("named_values")), stack_nvlist(yvlocalvar("stack_nvlist"))
{
}

const POA_DispatchNames& POA_DispatchNames::get()
{
    static const POA_DispatchNames names;
    return names;
}

std::vector<AST_Argument*> POA_DispatchNames::arguments_of(AST_Operation* op)
{
    const std::vector<AST_Decl*> decls = UTL_InclusiveFilteredScopeActiveIterator::decls_of(op, {AST_Decl::NT_argument});
    std::vector<AST_Argument*> args;
    args.reserve(decls.size());
    for (AST_Decl* d : decls)
        args.push_back(AST_Argument::narrow_from_decl(d));
    return args;
}
