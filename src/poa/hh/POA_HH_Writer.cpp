#include "POA_HH_Writer.h"

#include "GEN_POACxx.h"
#include "VIS_Cxx.h"

POA_HH_Writer::POA_HH_Writer(VIS_Cxx* v) : m_visitor(v), m_printer(v->stream(), v->indent()) {}

void POA_HH_Writer::class_head(std::string_view name)
{
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(m_visitor->generator());
    if (gen->declspecs_on())
        m_printer.print("class $declspec$ $name$", {{"declspec", gen->declspec()}, {"name", name}});
    else
        m_printer.print("class $name$", {{"name", name}});
}

CxxPrinter::Block POA_HH_Writer::class_body(std::string_view name)
{
    // The access label's two leading blanks are fixed.
    CxxPrinter::Block body = m_printer.block("{\n  public:\n", "};\n\n");
    m_printer.print("virtual ~$name$();\n\n", {{"name", name}});
    return body;
}

void POA_HH_Writer::member(std::string_view type, std::string_view name, std::initializer_list<std::string_view> params)
{
    m_printer.member(type, name, params, ";\n\n");
}

void POA_HH_Writer::dispatch(const std::string& name)
{
    member("static void", name + "_yvgen_dispatch",
           {"PortableServer::ServantBase* _servant", "CORBA::YV_ServerRequest_ptr _request",
            "CORBA::CompletionStatus &_status"});
}
