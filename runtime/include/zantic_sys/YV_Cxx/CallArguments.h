// The argument list that a client-side proxy hands to the runtime: each
// argument is one of the proxy's streamables, bound to the caller's own
// variable, with its direction.
//
//   YV_Cxx::CallArguments args;
//   args.in(memo_streamable).inout(count_streamable).out(fee_streamable);
//   _yv_invoke("deposit", &args, &result_streamable);
#ifndef YV_RT_YV_CXX_CALLARGUMENTS_H
#define YV_RT_YV_CXX_CALLARGUMENTS_H

#include "../CORBA/Any.h"
#include "../CORBA/NVList.h"
#include "../YV_Cxx_NV/StackBasedNamedValue.h"

#include <deque>

namespace YV_Cxx {

class CallArguments : public CORBA::NVList {
public:
    CallArguments& in(YV_Streamable& s) { return add(s, CORBA::ARG_IN); }
    CallArguments& inout(YV_Streamable& s) { return add(s, CORBA::ARG_INOUT); }
    CallArguments& out(YV_Streamable& s) { return add(s, CORBA::ARG_OUT); }

private:
    CallArguments& add(YV_Streamable& s, CORBA::Flags flags)
    {
        m_anys.emplace_back(&s, YV_SHALLOW_COPY);
        m_values.emplace_back(m_anys.back(), flags);
        yv_append(&m_values.back());
        return *this;
    }

    // Deques keep the addresses that the list refers to stable.
    std::deque<CORBA::Any> m_anys;
    std::deque<YV_Cxx_NV::StackBasedNamedValue> m_values;
};

} // namespace YV_Cxx

#endif
