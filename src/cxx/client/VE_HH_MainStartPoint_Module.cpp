#include "VE_HH_MainStartPoint_Module.h"

#include "AST_Module.h"
#include "CxxClientText.h"
#include "VIS_HH_MainStartPoint.h"
#include "idl_msg_header.h"

#include <ostream>

void VE_HH_MainStartPoint_Module::ReopenedModule::output_exception(std::ostream& os)
{
    idl_msg_header(m_module->line(), m_module->column(), m_module->file_name());
    os << "C++ Error. Module " << m_module->local_name()->get_string()
       << " cannot be reopened while modules are mapped to classes (-xNoNamespaces)." << std::endl;
}

long VE_HH_MainStartPoint_Module::visit(AST_Decl* d)
{
    AST_Module* m = AST_Module::narrow_from_decl(d);
    if (!m)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    const bool as_class = text.in_class(m);
    if (as_class && m->is_reopened())
        throw ReopenedModule(m);

    CxxPrinter p = text.printer();
    p.print("$keyword$ $name$\n{\n", {{"keyword", as_class ? "class" : "namespace"}, {"name", text.local(m)}});
    if (as_class)
        p.print("  public:\n");
    VIS_HH_MainStartPoint::write_scope(os(), indent().get_indent() + 1, m, generator());
    p.print(as_class ? "};\n\n" : "}\n\n");
    return 1;
}
