#include "POA_HH_Writer.h"

#include "GEN_POACxx.h"
#include "VIS_Cxx.h"

#include <ostream>

std::ostream& POA_HH_Writer::at_indent() { return m_visitor->stream() << m_visitor->indent(); }

void POA_HH_Writer::class_head(const std::string& name)
{
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(m_visitor->generator());
    at_indent() << "class ";
    if (gen->declspecs_on())
        m_visitor->stream() << gen->declspec() << " ";
    m_visitor->stream() << name;
}

void POA_HH_Writer::class_open(const std::string& name)
{
    at_indent() << "{\n";
    at_indent() << "  public:\n";
    m_visitor->indent().increment();
    at_indent() << "virtual ~" << name << "();\n\n";
}

void POA_HH_Writer::class_close()
{
    m_visitor->indent().decrement();
    at_indent() << "};\n\n";
}

void POA_HH_Writer::call_block(const std::string& head, std::initializer_list<const char*> params, const char* close)
{
    at_indent() << head << "(\n";
    m_visitor->indent().increment();
    for (const char* p : params)
        at_indent() << p << "\n";
    m_visitor->indent().decrement();
    at_indent() << close << "\n\n";
}

void POA_HH_Writer::member(const std::string& type, const std::string& name, std::initializer_list<const char*> params)
{
    at_indent() << type << "\n";
    call_block(name, params, ");");
}

void POA_HH_Writer::dispatch(const std::string& name)
{
    member("static void", name + "_yvgen_dispatch",
           {"PortableServer::ServantBase* _servant,", "CORBA::YV_ServerRequest_ptr _request,",
            "CORBA::CompletionStatus &_status"});
}
