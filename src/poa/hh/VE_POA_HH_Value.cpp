#include "VE_POA_HH_Value.h"

#include "AST_Value.h"
#include "GEN_POACxx.h"
#include "NameResolver.h"
#include "POA_HH_Writer.h"
#include "POA_OutputVisitor.h"
#include "POA_RootScope.h"

long VE_POA_HH_Value::visit(AST_Decl* d)
{
    AST_Value* v = AST_Value::narrow_from_decl(d);
    if (!v)
        throw Visitor_i::NarrowFailure(visitor(), d);
    AST_Interface* supported = v->supported();
    if (GEN_POACxx::narrow_from_gen(generator())->poa_interfaces_on() && supported && !supported->is_local())
        output_poa(v);
    return 1;
}

void VE_POA_HH_Value::output_poa(AST_Value* v)
{
    POA_HH_Writer w(visitor());
    const std::string skeleton = POA_OutputVisitor::skeleton_name(resolver(), v);

    w.class_head(skeleton);
    output_poa_inherits(v);
    w.printer().print("\n");
    auto body = w.class_body(skeleton);
    POA_RootScope fully_scoped(visitor());
    DeclMap done;
    output_supported(v, v->supported(), done);
}

void VE_POA_HH_Value::output_poa_inherits(AST_Value* v)
{
    CxxPrinter p = printer();
    p.continue_line();
    p.print(" :\n");
    auto bases = p.deeper();
    p.print("virtual public ");
    resolver().output_fully_scoped_name(os(), v);
    p.print(",\nvirtual public $supported$",
            {{"supported", POA_OutputVisitor::skeleton_name_in_scope(resolver(), v->supported(), visitor()->scope(), "::")}});
}
