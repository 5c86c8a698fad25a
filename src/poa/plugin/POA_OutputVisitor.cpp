#include "POA_OutputVisitor.h"

#include "AST_Interface.h"
#include "AST_InterfaceFwd.h"
#include "AST_Module.h"
#include "AST_Value.h"
#include "CxxTypeQueries.h"
#include "NameResolver.h"

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
