// The argument list that a client-side proxy hands to the runtime: each
// argument is one of the proxy's streamables, bound to the caller's own
// variable, with its direction.
//
//   YV_Cxx::CallArguments args;
//   args.in(memo_streamable).inout(count_streamable).out(fee_streamable);
//   target->_yv_invoke(operation, &args, &result_streamable);
//
// Generated proxies call invoke(), which builds the list from an array:
//
//   YV_Streamable* const args[] = {&memo_streamable, &count_streamable, &fee_streamable};
//   YV_Cxx::CallArguments::invoke(*this, operation, "ibo", args, &result_streamable);
#ifndef YV_RT_YV_CXX_CALLARGUMENTS_H
#define YV_RT_YV_CXX_CALLARGUMENTS_H

#include "../CORBA/Any.h"
#include "../CORBA/NVList.h"
#include "../YV_Cxx_NV/StackBasedNamedValue.h"

#include <deque>

namespace CORBA {
class Object;
} // namespace CORBA

namespace YV_Cxx {

struct Operation;

// Everything is out of line: every proxy member builds one, and its code
// belongs in the runtime rather than in each of them.
class CallArguments : public CORBA::NVList {
public:
    CallArguments();
    ~CallArguments() override;

    CallArguments& in(YV_Streamable& s);
    CallArguments& inout(YV_Streamable& s);
    CallArguments& out(YV_Streamable& s);

    // Has `target` serve `op` with the arguments `args`, one streamable per
    // letter of `directions` ('i' in, 'b' inout, 'o' out), and `result`
    // (null for void): CORBA::Object::_yv_invoke with their list.
    static void invoke(CORBA::Object& target, const Operation& op, const char* directions,
                       YV_Streamable* const* args, YV_Streamable* result);

private:
    CallArguments& add(YV_Streamable& s, CORBA::Flags flags);

    // Deques keep the addresses that the list refers to stable.
    std::deque<CORBA::Any> m_anys;
    std::deque<YV_Cxx_NV::StackBasedNamedValue> m_values;
};

} // namespace YV_Cxx

#endif
