#include "TestServants.h"


#include <chrono>
#include <cstring>
#include <thread>
#include <stdexcept>

namespace orbtest {

namespace {

const YV_Cxx::UserExceptionInfo oops_info[] = {{"IDL:Test/Oops:1.0", &YV_Cxx::read_and_raise<Oops>}};

template <class S>
typename std::remove_reference<decltype(std::declval<S&>().extract())>::type& caller_value(CORBA::NVList_ptr list,
                                                                                         CORBA::ULong i)
{
    return S::_downcast(list->item(i)->value()->yv_get_streamable())->extract();
}

// The request-based body's argument list over the given streamables.
class Arguments {
public:
    Arguments& add(YV_Streamable& s, CORBA::Flags flags)
    {
        m_anys[m_count].reset(new CORBA::Any(&s, YV_SHALLOW_COPY));
        m_values[m_count].reset(new YV_Cxx_NV::StackBasedNamedValue(*m_anys[m_count], flags));
        m_pointers[m_count] = m_values[m_count].get();
        ++m_count;
        return *this;
    }
    CORBA::NVList_ptr list()
    {
        m_list.reset(new YV_Cxx_NV::StackBasedNVList(m_count, m_pointers));
        return m_list.get();
    }

private:
    std::unique_ptr<CORBA::Any> m_anys[4];
    std::unique_ptr<YV_Cxx_NV::StackBasedNamedValue> m_values[4];
    CORBA::NamedValue* m_pointers[4] = {};
    CORBA::ULong m_count = 0;
    std::unique_ptr<YV_Cxx_NV::StackBasedNVList> m_list;
};

} // namespace

const YV_Cxx::Operation add_op = {"add", false, oops_info, 1};
const YV_Cxx::Operation add_op_unlisted = {"add", false, nullptr, 0};
const YV_Cxx::Operation note_op = {"note", true, nullptr, 0};
const YV_Cxx::Operation nest_op = {"nest", false, nullptr, 0};
const YV_Cxx::Operation bounce_op = {"bounce", false, nullptr, 0};

void WireObject::yv_read(YV_CDR::InputStream& in)
{
    CORBA::Object_ptr fresh = CORBA::Object::_yv_read(in);
    CORBA::release(extract());
    extract() = fresh;
}

void WireOctets::yv_copy_value(const YV_Streamable& from)
{
    const WireOctets* other = dynamic_cast<const WireOctets*>(&from);
    if (other == nullptr)
        yv_type_mismatch();
    *m_value = *other->m_value;
}

std::unique_ptr<YV_Streamable> WireOctets::yv_clone() const
{
    // Only the tests' callers clone, and they never do.
    throw CORBA::NO_IMPLEMENT(0, CORBA::COMPLETED_NO);
}

void WireOctets::yv_write(YV_CDR::OutputStream& out) const
{
    out.write_ulong(static_cast<CORBA::ULong>(m_value->size()));
    out.write_octet_array(reinterpret_cast<const CORBA::Octet*>(m_value->data()), m_value->size());
}

void WireOctets::yv_read(YV_CDR::InputStream& in)
{
    const CORBA::ULong n = in.read_count(1);
    m_value->assign(reinterpret_cast<const char*>(in.read_octets(n)), n);
}

void Oops::_yv_write_members(YV_CDR::OutputStream& out) const
{
    out.write_long(code);
}

CORBA::Long Adder::add(CORBA::Long a, CORBA::Long& b, CORBA::Long& c)
{
    if (a == 13) {
        Oops e;
        e.code = b;
        throw e;
    }
    if (a == 15)
        throw std::runtime_error("not CORBA");
    if (a == 16) {
        // Waits (at most 10 s) until a later request has noted b; c tells.
        c = 0;
        for (int i = 0; i < 1000 && noted != b; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        c = noted == b ? 1 : 0;
        return 0;
    }
    c = a - b;
    const CORBA::Long r = a * b;
    b = a + b;
    if (a == 14)
        throw CORBA::NO_PERMISSION(7, CORBA::COMPLETED_YES);
    return r;
}

CORBA::Long Adder::nest(CORBA::Object_ptr peer, CORBA::Long depth)
{
    if (depth <= 0)
        return 0;
    CORBA::Object_var self = _this_impl("IDL:Test/Adder:1.0");
    return 1 + call_nest(peer, self.in(), depth - 1);
}

Adder::_YV_DispatcherPtr Adder::_lookup_dispatcher(const char* operation)
{
    if (std::strcmp(operation, "add") == 0)
        return &add_dispatch;
    if (std::strcmp(operation, "note") == 0)
        return &note_dispatch;
    if (std::strcmp(operation, "nest") == 0)
        return &nest_dispatch;
    if (std::strcmp(operation, "bounce") == 0)
        return &bounce_dispatch;
    return ServantBase::_lookup_dispatcher(operation);
}

CORBA::Boolean Adder::_yv_is_a(const YV_FWString& id)
{
    return id == YV_FWString("IDL:Test/Adder:1.0");
}

CORBA::RepositoryId Adder::_primary_interface(const PortableServer::ObjectId&, PortableServer::POA_ptr)
{
    return CORBA::string_dup("IDL:Test/Adder:1.0");
}

void Adder::add_dispatch(ServantBase* s, CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus& status)
{
    Adder* self = dynamic_cast<Adder*>(s);
    CORBA::NVList_ptr nvlist;
    CORBA::Any* any;
    if (request->yv_setup(nvlist, any)) {
        typedef YV_Cxx::BasicStreamable<CORBA::Long> S;
        CORBA::Long& r = S::_downcast(any->yv_get_streamable())->extract();
        status = CORBA::COMPLETED_MAYBE;
        r = self->add(caller_value<S>(nvlist, 0), caller_value<S>(nvlist, 1), caller_value<S>(nvlist, 2));
        status = CORBA::COMPLETED_YES;
        request->set_result(*any);
        request->yv_respond();
        return;
    }
    CORBA::Long a = 0, b = 0, c = 0, r = 0;
    WireLong sa(&a), sb(&b), sc(&c), sr(&r);
    Arguments args;
    args.add(sa, CORBA::ARG_IN).add(sb, CORBA::ARG_INOUT).add(sc, CORBA::ARG_OUT);
    request->arguments(args.list());
    CORBA::Any ra(&sr, YV_SHALLOW_COPY);
    status = CORBA::COMPLETED_MAYBE;
    r = self->add(a, b, c);
    status = CORBA::COMPLETED_YES;
    request->set_result(ra);
    request->yv_respond();
}

void Adder::note_dispatch(ServantBase* s, CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus& status)
{
    Adder* self = dynamic_cast<Adder*>(s);
    CORBA::NVList_ptr nvlist;
    CORBA::Any* any;
    CORBA::Long a = 0;
    if (request->yv_setup(nvlist, any)) {
        a = caller_value<YV_Cxx::BasicStreamable<CORBA::Long>>(nvlist, 0);
        status = CORBA::COMPLETED_MAYBE;
        self->noted = a;
        status = CORBA::COMPLETED_YES;
        request->yv_respond();
        return;
    }
    WireLong sa(&a);
    Arguments args;
    args.add(sa, CORBA::ARG_IN);
    request->arguments(args.list());
    status = CORBA::COMPLETED_MAYBE;
    self->noted = a;
    status = CORBA::COMPLETED_YES;
    CORBA::Any none;
    request->set_result(none);
    request->yv_respond();
}

void Adder::nest_dispatch(ServantBase* s, CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus& status)
{
    Adder* self = dynamic_cast<Adder*>(s);
    CORBA::NVList_ptr nvlist;
    CORBA::Any* any;
    if (request->yv_setup(nvlist, any)) {
        CORBA::Long& r = YV_Cxx::BasicStreamable<CORBA::Long>::_downcast(any->yv_get_streamable())->extract();
        status = CORBA::COMPLETED_MAYBE;
        r = self->nest(caller_value<YV_Cxx::ObjRefStreamable<CORBA::Object>>(nvlist, 0),
                       caller_value<YV_Cxx::BasicStreamable<CORBA::Long>>(nvlist, 1));
        status = CORBA::COMPLETED_YES;
        request->set_result(*any);
        request->yv_respond();
        return;
    }
    CORBA::Object_ptr peer = nullptr;
    CORBA::Long depth = 0, r = 0;
    WireObject sp(&peer, request->yv_get_orb(), YV_Cxx::usage_in);
    WireLong sd(&depth), sr(&r);
    Arguments args;
    args.add(sp, CORBA::ARG_IN).add(sd, CORBA::ARG_IN);
    request->arguments(args.list());
    CORBA::Any ra(&sr, YV_SHALLOW_COPY);
    status = CORBA::COMPLETED_MAYBE;
    r = self->nest(peer, depth);
    status = CORBA::COMPLETED_YES;
    request->set_result(ra);
    request->yv_respond();
}

void Adder::bounce_dispatch(ServantBase*, CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus& status)
{
    CORBA::NVList_ptr nvlist;
    CORBA::Any* any;
    if (request->yv_setup(nvlist, any)) {
        WireOctets* in = dynamic_cast<WireOctets*>(nvlist->item(0)->value()->yv_get_streamable());
        WireOctets* out = dynamic_cast<WireOctets*>(any->yv_get_streamable());
        status = CORBA::COMPLETED_YES;
        out->value() = in->value();
        request->set_result(*any);
        request->yv_respond();
        return;
    }
    std::string data, result;
    WireOctets sd(&data), sr(&result);
    Arguments args;
    args.add(sd, CORBA::ARG_IN);
    request->arguments(args.list());
    CORBA::Any ra(&sr, YV_SHALLOW_COPY);
    status = CORBA::COMPLETED_YES;
    result = data;
    request->set_result(ra);
    request->yv_respond();
}

AddResult call_add(CORBA::Object_ptr ref, CORBA::Long a, CORBA::Long b, const YV_Cxx::Operation& op)
{
    CORBA::Long c = -1, r = -1;
    WireLong sa(&a), sb(&b), sc(&c), sr(&r);
    YV_Cxx::CallArguments args;
    args.in(sa).inout(sb).out(sc);
    ref->_yv_invoke(op, &args, &sr);
    return AddResult{r, b, c};
}

void call_note(CORBA::Object_ptr ref, CORBA::Long a)
{
    WireLong sa(&a);
    YV_Cxx::CallArguments args;
    args.in(sa);
    ref->_yv_invoke(note_op, &args, nullptr);
}

CORBA::Long call_nest(CORBA::Object_ptr ref, CORBA::Object_ptr peer, CORBA::Long depth)
{
    CORBA::Long r = -1;
    WireObject sp(&peer, YV_Cxx::usage_borrow);
    WireLong sd(&depth), sr(&r);
    YV_Cxx::CallArguments args;
    args.in(sp).in(sd);
    ref->_yv_invoke(nest_op, &args, &sr);
    return r;
}

std::string call_bounce(CORBA::Object_ptr ref, const std::string& data)
{
    std::string in = data, out;
    WireOctets sd(&in), sr(&out);
    YV_Cxx::CallArguments args;
    args.in(sd);
    ref->_yv_invoke(bounce_op, &args, &sr);
    return out;
}

} // namespace orbtest
