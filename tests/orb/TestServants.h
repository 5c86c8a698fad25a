// A servant written the way the skeleton generator writes servants (one
// dispatch function per operation, with a colocated and a request-based
// body), over streamables of the tests' own that know their CDR, so that
// the ORB's tests need no generated code.
//
//   long add(in long a, inout long b, out long c) raises (Oops)
//       b becomes a + b, c is a - (old b), the result a * (old b); a of 13
//       raises Oops (code: b), 14 NO_PERMISSION after the work (minor 7),
//       15 a non-CORBA exception
//   oneway void note(in long a)         remembers a
//   long nest(in Object peer, in long depth)
//       0 at depth 0, else 1 + peer.nest(this object, depth - 1)
//   octets bounce(in octets data)       the same octets back
#ifndef YV_ORB_TESTSERVANTS_H
#define YV_ORB_TESTSERVANTS_H

#include <omg/PortableServer.hh>
#include <zantic_sys/YV_CDR/InputStream.h>
#include <zantic_sys/YV_CDR/OutputStream.h>
#include <zantic_sys/YV_Cxx/Operation.h>
#include <zantic_sys/nmval.h>
#include <zantic_sys/yvcxx.h>

#include <atomic>
#include <string>

namespace orbtest {

// A long that travels.
class WireLong : public YV_Cxx::BasicStreamable<CORBA::Long> {
public:
    using YV_Cxx::BasicStreamable<CORBA::Long>::BasicStreamable;
    void yv_write(YV_CDR::OutputStream& out) const override { out.write_long(extract()); }
    void yv_read(YV_CDR::InputStream& in) override { extract() = in.read_long(); }
};

// An object reference that travels.
class WireObject : public YV_Cxx::ObjRefStreamable<CORBA::Object> {
public:
    using YV_Cxx::ObjRefStreamable<CORBA::Object>::RefStreamable;
    void yv_write(YV_CDR::OutputStream& out) const override { CORBA::Object::_yv_write(out, extract()); }
    void yv_read(YV_CDR::InputStream& in) override;
};

// Octets in a std::string, as a sequence<octet>.
class WireOctets : public YV_Streamable {
public:
    explicit WireOctets(std::string* value) : m_value(value) {}
    void yv_copy_value(const YV_Streamable& from) override;
    std::unique_ptr<YV_Streamable> yv_clone() const override;
    void yv_write(YV_CDR::OutputStream& out) const override;
    void yv_read(YV_CDR::InputStream& in) override;
    std::string& value() { return *m_value; }

private:
    std::string* m_value;
};

// The exception "IDL:Test/Oops:1.0" with one member.
class Oops : public CORBA::UserException {
public:
    CORBA::Long code = 0;
    const char* _name() const override { return "Oops"; }
    const char* _rep_id() const override { return "IDL:Test/Oops:1.0"; }
    void _raise() const override { throw *this; }
    void _yv_write_members(YV_CDR::OutputStream& out) const override;
    void _yv_read_members(YV_CDR::InputStream& in) { code = in.read_long(); }
};

extern const YV_Cxx::Operation add_op;
extern const YV_Cxx::Operation add_op_unlisted;  // add without its raises clause
extern const YV_Cxx::Operation note_op;
extern const YV_Cxx::Operation nest_op;
extern const YV_Cxx::Operation bounce_op;

class Adder : public virtual PortableServer::ServantBase {
public:
    std::atomic<CORBA::Long> noted{0};

    CORBA::Long add(CORBA::Long a, CORBA::Long& b, CORBA::Long& c);
    CORBA::Long nest(CORBA::Object_ptr peer, CORBA::Long depth);

    _YV_DispatcherPtr _lookup_dispatcher(const char* operation) override;
    CORBA::Boolean _yv_is_a(const YV_FWString& id) override;
    CORBA::RepositoryId _primary_interface(const PortableServer::ObjectId&, PortableServer::POA_ptr) override;

    static void add_dispatch(ServantBase* s, CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus& status);
    static void note_dispatch(ServantBase* s, CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus& status);
    static void nest_dispatch(ServantBase* s, CORBA::YV_ServerRequest_ptr request, CORBA::CompletionStatus& status);
    static void bounce_dispatch(ServantBase* s, CORBA::YV_ServerRequest_ptr request,
                                CORBA::CompletionStatus& status);
};

// The client side of the operations, through a reference.
struct AddResult {
    CORBA::Long r, b, c;
};
AddResult call_add(CORBA::Object_ptr ref, CORBA::Long a, CORBA::Long b, const YV_Cxx::Operation& op = add_op);
void call_note(CORBA::Object_ptr ref, CORBA::Long a);
CORBA::Long call_nest(CORBA::Object_ptr ref, CORBA::Object_ptr peer, CORBA::Long depth);
std::string call_bounce(CORBA::Object_ptr ref, const std::string& data);

} // namespace orbtest

#endif
