#include "POA_OutputVisitor.h"

#include "AST_Interface.h"
#include "AST_InterfaceFwd.h"
#include "AST_Module.h"
#include "AST_Value.h"
#include "CxxTypeQueries.h"
#include "NameResolver.h"
#include "YV_ScratchStream.h"

#include <ostream>

POA_OutputVisitor::POA_OutputVisitor(std::ostream& os, NameResolver& resolver)
    : Visitor_i(nullptr, nullptr), DefaultOutputVisitor(os, resolver)
{
}

long POA_OutputVisitor::write_poa_name(AST_Decl* d)
{
    if (isRootScope(d->defined_in()))
        stream() << "POA_";
    stream() << resolver().local_name(d);
    return 1;
}

long POA_OutputVisitor::visit_AST_Module(AST_Module* n) { return write_poa_name(n); }
long POA_OutputVisitor::visit_AST_Interface(AST_Interface* n) { return write_poa_name(n); }
long POA_OutputVisitor::visit_AST_InterfaceFwd(AST_InterfaceFwd* n) { return write_poa_name(n); }
long POA_OutputVisitor::visit_AST_AbstractInterface(AST_Interface* n) { return write_poa_name(n); }
long POA_OutputVisitor::visit_AST_Value(AST_Value* n) { return write_poa_name(n); }

std::string POA_OutputVisitor::skeleton_name(NameResolver& resolver, AST_Decl* d)
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    POA_OutputVisitor names(text, resolver);
    d->accept(&names);
    return text_buf.str();
}

std::string POA_OutputVisitor::skeleton_name_in_scope(NameResolver& resolver, AST_Decl* d, UTL_Scope* from,
                                                      const char* sep)
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    POA_OutputVisitor names(text, resolver);
    resolver.output_name_in_scope_with_visitor(text, d, from, &names, sep);
    return text_buf.str();
}

std::string POA_OutputVisitor::skeleton_scoped_name(NameResolver& resolver, AST_Decl* d, const char* sep)
{
    YV_ScratchStream text_buf;
    std::ostream& text = text_buf.stream();
    POA_OutputVisitor names(text, resolver);
    resolver.output_fully_scoped_name_with_visitor(text, d, &names, sep);
    return text_buf.str();
}
