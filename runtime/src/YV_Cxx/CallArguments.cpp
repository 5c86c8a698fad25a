#include "zantic_sys/YV_Cxx/CallArguments.h"

#include "zantic_sys/CORBA/Object.h"
#include "zantic_sys/YV_Cxx/Operation.h"

namespace YV_Cxx {

CallArguments::CallArguments() = default;

CallArguments::~CallArguments() = default;

CallArguments& CallArguments::in(YV_Streamable& s) { return add(s, CORBA::ARG_IN); }

CallArguments& CallArguments::inout(YV_Streamable& s) { return add(s, CORBA::ARG_INOUT); }

CallArguments& CallArguments::out(YV_Streamable& s) { return add(s, CORBA::ARG_OUT); }

void CallArguments::invoke(CORBA::Object& target, const Operation& op, const char* directions,
                           YV_Streamable* const* args, YV_Streamable* result)
{
    if (directions == nullptr || *directions == '\0') {
        target._yv_invoke(op, nullptr, result);
        return;
    }
    CallArguments list;
    for (std::size_t i = 0; directions[i] != '\0'; ++i)
        list.add(*args[i], directions[i] == 'i' ? CORBA::ARG_IN : directions[i] == 'b' ? CORBA::ARG_INOUT : CORBA::ARG_OUT);
    target._yv_invoke(op, &list, result);
}

CallArguments& CallArguments::add(YV_Streamable& s, CORBA::Flags flags)
{
    m_anys.emplace_back(&s, YV_SHALLOW_COPY);
    m_values.emplace_back(m_anys.back(), flags);
    yv_append(&m_values.back());
    return *this;
}

} // namespace YV_Cxx
