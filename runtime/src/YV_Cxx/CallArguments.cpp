#include "zantic_sys/YV_Cxx/CallArguments.h"

#include "zantic_sys/CORBA/Object.h"
#include "zantic_sys/YV_Cxx/Operation.h"

#include <cstring>
#include <optional>

namespace YV_Cxx {

namespace {

// Calls with up to this many arguments keep their list's anys and named
// values on the stack.
constexpr std::size_t stack_arguments = 8;

// A list over named values someone else keeps.
class ListOf : public CORBA::NVList {
public:
    ListOf(CORBA::ULong n, CORBA::NamedValue_ptr* values) : CORBA::NVList(n, values) {}
};

CORBA::Flags flags_of(char direction)
{
    return direction == 'i' ? CORBA::ARG_IN : direction == 'b' ? CORBA::ARG_INOUT : CORBA::ARG_OUT;
}

} // namespace

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
    const std::size_t n = std::strlen(directions);
    if (n > stack_arguments) {
        CallArguments list;
        for (std::size_t i = 0; i < n; ++i)
            list.add(*args[i], flags_of(directions[i]));
        target._yv_invoke(op, &list, result);
        return;
    }
    std::optional<CORBA::Any> anys[stack_arguments];
    std::optional<YV_Cxx_NV::StackBasedNamedValue> values[stack_arguments];
    CORBA::NamedValue_ptr items[stack_arguments];
    for (std::size_t i = 0; i < n; ++i) {
        anys[i].emplace(args[i], YV_SHALLOW_COPY);
        values[i].emplace(*anys[i], flags_of(directions[i]));
        items[i] = &*values[i];
    }
    ListOf list(static_cast<CORBA::ULong>(n), items);
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
