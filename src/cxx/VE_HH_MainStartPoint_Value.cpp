#include "VE_HH_MainStartPoint_Value.h"

#include "AST_Attribute.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "AST_Value.h"
#include "PureVirtualHHVisit.h"
#include "VE_Client_Interface.h"
#include "VE_HH_AttrDecl.h"
#include "VE_HH_OpDecl.h"

#include <vector>

long VE_HH_MainStartPoint_Value::visit(AST_Decl* d)
{
    if (!AST_Value::narrow_from_decl(d))
        throw Visitor_i::NarrowFailure(visitor(), d);
    // The client header's value-type class is written by the client header
    // generator; this element provides output_supported.
    return 1;
}

void VE_HH_MainStartPoint_Value::output_supported(AST_Value*, AST_Interface* supported, DeclMap& done)
{
    if (!supported)
        return;
    std::vector<AST_Interface*> interfaces;
    long keys = 0;
    VE_Client_Interface graph(visitor());
    graph.find_all_interfaces(supported, interfaces, keys);

    VE_HH_OpDecl op_decl(visitor(), PureVirtualHHVisit::instance(), nullptr, nullptr, 1, 1, "%s");
    VE_HH_AttrDecl attr_decl(visitor(), PureVirtualHHVisit::instance(), nullptr, nullptr, 1, 1, "%s");
    for (AST_Interface* i : interfaces) {
        for (const auto& member : i->decls()) {
            AST_Decl* d = member.get();
            if (d->node_type() != AST_Decl::NT_op && d->node_type() != AST_Decl::NT_attr)
                continue;
            if (!done.insert(DeclPointerHolder{d}, DeclPointerHolder{d}))
                continue;
            if (AST_Operation* op = AST_Operation::narrow_from_decl(d)) {
                op_decl.visit(op);
                os() << "\n\n";
            } else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d)) {
                attr_decl.output_get(a);
                os() << "\n\n";
                if (!a->readonly()) {
                    attr_decl.output_set(a); // ends its own line
                    os() << "\n";
                }
            }
        }
    }
}
