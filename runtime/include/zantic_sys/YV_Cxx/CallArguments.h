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

// Everything is out of line: every proxy member builds one, and its code
// belongs in the runtime rather than in each of them.
class CallArguments : public CORBA::NVList {
public:
    CallArguments();
    ~CallArguments() override;

    CallArguments& in(YV_Streamable& s);
    CallArguments& inout(YV_Streamable& s);
    CallArguments& out(YV_Streamable& s);

private:
    CallArguments& add(YV_Streamable& s, CORBA::Flags flags);

    // Deques keep the addresses that the list refers to stable.
    std::deque<CORBA::Any> m_anys;
    std::deque<YV_Cxx_NV::StackBasedNamedValue> m_values;
};

} // namespace YV_Cxx

#endif
