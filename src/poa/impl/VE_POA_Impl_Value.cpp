#include "VE_POA_Impl_Value.h"

#include "AST_Value.h"
#include "GEN_POACxx.h"
#include "POA_SkeletonNames.h"

long VE_POA_Impl_Value::visit(AST_Decl* d)
{
    AST_Value* value = AST_Value::narrow_from_decl(d);
    if (!value)
        throw Visitor_i::NarrowFailure(visitor(), d);
    AST_Interface* supported = value->supported();
    if (GEN_POACxx::narrow_from_gen(generator())->poa_interfaces_on() && supported && !supported->is_local())
        output_poa_impl(value);
    return 1;
}

void VE_POA_Impl_Value::output_poa_impl(AST_Value* v)
{
    const POA_SkeletonNames names(resolver());
    // The definition starts in the first column (fixed).
    printer().raw("$skeleton$::~$own$() {}\n\n", {{"skeleton", names.scoped(v)}, {"own", names.own(v)}});
}
