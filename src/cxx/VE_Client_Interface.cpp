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
    at_indent() << "char ";
    resolver().output_fully_scoped_name_with_visitor(os(), i, name_visitor, "::");
    os() << "::_narrow_tag = 0;";
}

void VE_Client_Interface::outputNarrowTagVar(AST_Interface* i, Visitor_i* name_visitor)
{
    resolver().output_fully_scoped_name_with_visitor(os(), i, name_visitor, "::");
    os() << "::_narrow_tag";
}

void VE_Client_Interface::output_local_narrow(AST_Interface* i, Visitor_i* name_visitor, const char* base_class)
{
    at_indent() << "void*\n";
    at_indent();
    resolver().output_fully_scoped_name_with_visitor(os(), i, name_visitor, "::");
    os() << "::_local_narrow(\n";
    indent().increment();
    at_indent() << "const char* tag\n";
    indent().decrement();
    at_indent() << ")\n";
    at_indent() << "{\n";
    indent().increment();
    at_indent() << "if (tag == &";
    outputNarrowTagVar(i, name_visitor);
    os() << ")\n";
    indent().increment();
    at_indent() << "return this;\n";
    indent().decrement();
    if (i->inherits().empty()) {
        at_indent() << "return " << (base_class ? base_class : "PortableServer::ServantBase")
                    << "::_local_narrow(tag);\n";
    } else {
        for (AST_Interface* base : i->inherits()) {
            at_indent() << "if (void* base = ";
            resolver().output_fully_scoped_name_with_visitor(os(), base, name_visitor, "::");
            os() << "::_local_narrow(tag))\n";
            indent().increment();
            at_indent() << "return base;\n";
            indent().decrement();
        }
        at_indent() << "return 0;\n";
    }
    indent().decrement();
    at_indent() << "}\n";
}

void VE_Client_Interface::output_dtor(AST_Interface* i)
{
    const std::string name = resolver().local_name(i);
    at_indent();
    resolver().output_fully_scoped_name(os(), i);
    os() << "::~" << name << "()\n";
    at_indent() << "{\n";
    at_indent() << "}\n\n";
}
