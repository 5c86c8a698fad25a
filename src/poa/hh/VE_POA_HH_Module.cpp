#include "VE_POA_HH_Module.h"

#include "AST_Module.h"
#include "GEN_POACxx.h"
#include "POA_OutputVisitor.h"
#include "UTL_InclusiveFilteredScopeActiveIterator.h"
#include "VE_POA_HH_Root.h"
#include "VIS_POA_HH.h"
#include "POA_VisitorFactories.h"
#include "idl_msg_header.h"

#include <memory>

void VE_POA_HH_Module::NamespacesUnsupported::output_exception(std::ostream& os)
{
    idl_msg_header(m_module->line(), m_module->column(), m_module->file_name());
    os << "POA Error. Module " << m_module->local_name()->get_string() << " can not be reopened. Namespaces are not "
       << "supported by your C++ compiler." << std::endl;
}

long VE_POA_HH_Module::visit(AST_Decl* d)
{
    AST_Module* m = AST_Module::narrow_from_decl(d);
    if (!m)
        throw Visitor_i::NarrowFailure(visitor(), d);
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    const std::string name = POA_OutputVisitor::skeleton_name(resolver(), m);

    CxxPrinter p = printer();
    if (gen->namespace_support()) {
        p.print("namespace $name$\n{\n", {{"name", name}});
    } else {
        if (m->is_reopened())
            throw NamespacesUnsupported(m);
        p.print("class $name$\n{\npublic:\n\n", {{"name", name}});
    }
    iterateScope(m);
    p.print(gen->namespace_support() ? "}\n\n\n" : "};\n\n\n");
    return 1;
}

void VE_POA_HH_Module::iterateScope(UTL_Scope* s)
{
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(generator());
    // The factory hands the visitor over; it is deleted when the module is done.
    std::unique_ptr<VIS_POA_HH> contents(VIS_POA_HH_Factory::find_factory(gen->visitorFF())
                                             ->create_VIS_POA_HH(os(), indent().get_indent() + 1, s, gen));
    for (AST_Decl* d : UTL_InclusiveFilteredScopeActiveIterator::decls_of(s, VE_POA_HH_Root::skeleton_kinds()))
        d->accept(contents.get());
}
