#include "VE_Client_Interface.h"

#include "AST_Attribute.h"
#include "AST_Interface.h"
#include "NameResolver.h"

#include <algorithm>

long VE_Client_Interface::visit(AST_Decl* d)
{
    if (!AST_Interface::narrow_from_decl(d))
        throw Visitor_i::NarrowFailure(visitor(), d);
    // The client-side class declarations are written by the client header
    // generator; this element only provides the shared services below.
    return 1;
}

void VE_Client_Interface::find_all_interfaces(AST_Interface* i, std::vector<AST_Interface*>& all, long& counter)
{
    if (!i || std::find(all.begin(), all.end(), i) != all.end())
        return;
    all.push_back(i);
    for (const auto& d : i->decls()) {
        if (d->node_type() == AST_Decl::NT_op)
            counter += 1;
        else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d.get()))
            counter += a->readonly() ? 1 : 2;
    }
    for (AST_Interface* base : i->inherits())
        find_all_interfaces(base, all, counter);
}

void VE_Client_Interface::outputNarrowTag(AST_Interface* i, Visitor_i* name_visitor)
{
    CxxPrinter p = printer();
    p.print("char ");
    resolver().output_fully_scoped_name_with_visitor(os(), i, name_visitor, "::");
    p.print("::_narrow_tag = 0;");
}

void VE_Client_Interface::outputNarrowTagVar(AST_Interface* i, Visitor_i* name_visitor)
{
    resolver().output_fully_scoped_name_with_visitor(os(), i, name_visitor, "::");
    CxxPrinter p = printer();
    p.continue_line();
    p.print("::_narrow_tag");
}

// The names are written by `name_visitor` through the resolver, between
// the pieces of the lines.
void VE_Client_Interface::output_local_narrow(AST_Interface* i, Visitor_i* name_visitor, const char* base_class)
{
    CxxPrinter p = printer();
    auto scoped = [&](AST_Interface* d) { resolver().output_fully_scoped_name_with_visitor(os(), d, name_visitor, "::"); };
    p.print("void*\n");
    p.indentation();
    scoped(i);
    p.print("::_local_narrow(\n");
    {
        auto params = p.deeper();
        p.print("const char* tag\n");
    }
    p.print(")\n");
    auto body = p.block();
    p.print("if (tag == &");
    outputNarrowTagVar(i, name_visitor);
    p.print(")\n");
    {
        auto then = p.deeper();
        p.print("return this;\n");
    }
    if (i->inherits().empty()) {
        p.print("return $base$::_local_narrow(tag);\n", {{"base", base_class ? base_class : "PortableServer::ServantBase"}});
        return;
    }
    for (AST_Interface* base : i->inherits()) {
        p.print("if (void* base = ");
        scoped(base);
        p.print("::_local_narrow(tag))\n");
        auto then = p.deeper();
        p.print("return base;\n");
    }
    p.print("return 0;\n");
}

void VE_Client_Interface::output_dtor(AST_Interface* i)
{
    CxxPrinter p = printer();
    p.indentation();
    resolver().output_fully_scoped_name(os(), i);
    p.print("::~$name$()\n{\n}\n\n", {{"name", resolver().local_name(i)}});
}
