#include "zantic_sys/YV_Cxx/CallArguments.h"

namespace YV_Cxx {

CallArguments::CallArguments() = default;

CallArguments::~CallArguments() = default;

CallArguments& CallArguments::in(YV_Streamable& s) { return add(s, CORBA::ARG_IN); }

CallArguments& CallArguments::inout(YV_Streamable& s) { return add(s, CORBA::ARG_INOUT); }

CallArguments& CallArguments::out(YV_Streamable& s) { return add(s, CORBA::ARG_OUT); }

CallArguments& CallArguments::add(YV_Streamable& s, CORBA::Flags flags)
{
    m_anys.emplace_back(&s, YV_SHALLOW_COPY);
    m_values.emplace_back(m_anys.back(), flags);
    yv_append(&m_values.back());
    return *this;
}

} // namespace YV_Cxx
