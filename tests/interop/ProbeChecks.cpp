#include "ProbeChecks.h"

#include "InteropValues.h"
#include "ProbeServant.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <functional>
#include <thread>

namespace interop {

namespace {

std::string text(const char* s)
{
    return s ? s : "<null>";
}

std::wstring text(const CORBA::WChar* s)
{
    return s ? s : L"<null>";
}

// Waits up to ten seconds for `done` (oneway calls give no reply to wait
// for).
template <class Done>
bool eventually(Done done)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!done()) {
        if (std::chrono::steady_clock::now() > deadline)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return true;
}

std::string hex(CORBA::ULong value)
{
    char text[16];
    std::snprintf(text, sizeof text, "0x%lx", static_cast<unsigned long>(value));
    return text;
}

std::vector<std::string> strings_of(const Interop::StringSeq& seq)
{
    std::vector<std::string> result;
    for (CORBA::ULong i = 0; i < seq.length(); ++i)
        result.push_back(text(seq[i]));
    return result;
}

} // namespace

ProbeChecks::ProbeChecks(CORBA::ORB_ptr orb, PortableServer::POA_ptr poa, Interop::Probe_ptr probe,
                         CallbackServant& first, CallbackServant& second, CheckReport& report)
    : m_orb(CORBA::ORB::_duplicate(orb)), m_poa(PortableServer::POA::_duplicate(poa)),
      m_probe(Interop::Probe::_duplicate(probe)), m_first(first), m_second(second), m_report(report)
{
}

void ProbeChecks::run()
{
    try {
        CORBA::String_var version = m_probe->version();
        m_peer = text(version.in());
        m_report.check("version names the serving ORB", m_peer == "omniORB" || m_peer == "yvidl", m_peer);
    } catch (const CORBA::Exception& e) {
        m_report.check("version names the serving ORB", false, CheckReport::text(e));
        return;
    }
    const struct {
        const char* name;
        void (ProbeChecks::*run)();
    } groups[] = {
        {"values", &ProbeChecks::values},         {"anys", &ProbeChecks::anys},
        {"references", &ProbeChecks::references}, {"lifecycle", &ProbeChecks::lifecycle},
        {"attributes", &ProbeChecks::attributes}, {"exceptions", &ProbeChecks::exceptions},
        {"oneways", &ProbeChecks::oneways},       {"concurrency", &ProbeChecks::concurrency},
    };
    for (const auto& group : groups) {
        try {
            (this->*group.run)();
        } catch (const CORBA::Exception& e) {
            m_report.check(std::string(group.name) + " (unexpected exception)", false, CheckReport::text(e));
        }
    }
}

template <class K, class Call>
void ProbeChecks::rotation(const std::string& operation, Call call)
{
    typedef typename K::T T;
    const std::vector<T>& s = K::samples();
    const std::size_t n = s.size();
    // A wrong value is named by its sample index when it is one.
    const auto what = [](const T& v) {
        const std::size_t j = sample_index<K>(v);
        return j == npos ? show(v) : "sample " + std::to_string(j);
    };
    std::string problems;
    for (std::size_t i = 0; i < n; ++i) {
        const std::string at = "[" + std::to_string(i) + "] ";
        // Assigned, not copy-constructed: omniORB's fixed-point types lose
        // their digits and scale in the copy constructor.
        T a, b, c, r;
        a = s[i];
        b = s[(i + 1) % n];
        try {
            call(a, b, c, r);
        } catch (const CORBA::Exception& e) {
            problems += at + CheckReport::text(e);
            if (const CORBA::BAD_PARAM* bad = CORBA::BAD_PARAM::_downcast(&e))
                problems += bad->minor() == bad_in_value      ? " (the server got a wrong in value)"
                            : bad->minor() == bad_inout_value ? " (the server got a wrong inout value)"
                                                              : "";
            problems += "; ";
            continue;
        }
        if (!same(r, s[(i + 2) % n]))
            problems += at + "result " + what(r) + "; ";
        if (!same(b, s[i]))
            problems += at + "inout " + what(b) + "; ";
        if (!same(c, s[(i + 1) % n]))
            problems += at + "out " + what(c) + "; ";
    }
    m_report.check(operation + " (" + K::name() + ", " + std::to_string(n) + " calls)", problems);
}

// Kinds passed by value or reference (basic types, enumerations, fixed,
// fixed-length structures).
#define INTEROP_BY_VALUE(K, op)                                                                 \
    rotation<K>(#op, [this](const K::T& a, K::T& b, K::T& c, K::T& r) { r = m_probe->op(a, b, c); })
// Variable-length kinds: out values and results arrive as new values.
#define INTEROP_VARIABLE(K, op, Var)                                                            \
    rotation<K>(#op, [this](const K::T& a, K::T& b, K::T& c, K::T& r) {                          \
        Var out;                                                                                \
        Var result = m_probe->op(a, b, out.out());                                              \
        c = out.in();                                                                           \
        r = result.in();                                                                        \
    })
#define INTEROP_STRING(K, op, Var)                                                              \
    rotation<K>(#op, [this](const K::T& a, K::T& b, K::T& c, K::T& r) {                          \
        Var inout = b.c_str();                                                                  \
        Var out;                                                                                \
        Var result = m_probe->op(a.c_str(), inout.inout(), out.out());                          \
        b = text(inout.in());                                                                   \
        c = text(out.in());                                                                     \
        r = text(result.in());                                                                  \
    })

void ProbeChecks::values()
{
    INTEROP_BY_VALUE(KShort, echo_short);
    INTEROP_BY_VALUE(KUShort, echo_ushort);
    INTEROP_BY_VALUE(KLong, echo_long);
    INTEROP_BY_VALUE(KULong, echo_ulong);
    INTEROP_BY_VALUE(KLongLong, echo_longlong);
    INTEROP_BY_VALUE(KULongLong, echo_ulonglong);
    INTEROP_BY_VALUE(KFloat, echo_float);
    INTEROP_BY_VALUE(KDouble, echo_double);
    if (m_peer == INTEROP_ORB_NAME)
        INTEROP_BY_VALUE(KLongDouble, echo_longdouble);
    else
        m_report.not_run("echo_longdouble",
                         "omniORB writes the x87 extended layout, not binary128, so no other ORB can agree with it");
    INTEROP_BY_VALUE(KBoolean, echo_boolean);
    INTEROP_BY_VALUE(KChar, echo_char);
    INTEROP_BY_VALUE(KWChar, echo_wchar);
    INTEROP_BY_VALUE(KOctet, echo_octet);

    INTEROP_STRING(KString, echo_string, CORBA::String_var);
    INTEROP_STRING(KShortName, echo_shortname, CORBA::String_var);
    INTEROP_STRING(KWString, echo_wstring, CORBA::WString_var);
    INTEROP_STRING(KShortWName, echo_shortwname, CORBA::WString_var);

    INTEROP_BY_VALUE(KColor, echo_color);
    INTEROP_BY_VALUE(KScore, echo_score);
    INTEROP_BY_VALUE(KMoney, echo_money);
    INTEROP_BY_VALUE(KBigDecimal, echo_bigdecimal);

    INTEROP_BY_VALUE(KPoint, echo_point);
    INTEROP_BY_VALUE(KBasics, echo_basics);
    INTEROP_VARIABLE(KPerson, echo_person, Interop::Person_var);
    INTEROP_VARIABLE(KTree, echo_tree, Interop::Tree_var);

    INTEROP_VARIABLE(KByLong, echo_bylong, Interop::ByLong_var);
    INTEROP_VARIABLE(KByColor, echo_bycolor, Interop::ByColor_var);
    INTEROP_VARIABLE(KByChar, echo_bychar, Interop::ByChar_var);
    INTEROP_VARIABLE(KByBool, echo_bybool, Interop::ByBool_var);
    INTEROP_VARIABLE(KByUShort, echo_byushort, Interop::ByUShort_var);
    INTEROP_VARIABLE(KByLongLong, echo_bylonglong, Interop::ByLongLong_var);

    INTEROP_VARIABLE(KLongSeq, echo_longseq, Interop::LongSeq_var);
    INTEROP_VARIABLE(KShortLongSeq, echo_shortlongseq, Interop::ShortLongSeq_var);
    INTEROP_VARIABLE(KStringSeq, echo_stringseq, Interop::StringSeq_var);
    INTEROP_VARIABLE(KWStringSeq, echo_wstringseq, Interop::WStringSeq_var);
    INTEROP_VARIABLE(KLongSeqSeq, echo_longseqseq, Interop::LongSeqSeq_var);
    INTEROP_VARIABLE(KPersonSeq, echo_personseq, Interop::PersonSeq_var);
    INTEROP_VARIABLE(KUnionSeq, echo_unionseq, Interop::UnionSeq_var);
    INTEROP_VARIABLE(KOctets, echo_octets, Interop::Octets_var);

    rotation<KMatrix>("echo_matrix", [this](const MatrixValue& a, MatrixValue& b, MatrixValue& c, MatrixValue& r) {
        Interop::Matrix in, inout, out;
        to_slice(a, in);
        to_slice(b, inout);
        Interop::Matrix_var result = m_probe->echo_matrix(in, inout, out);
        b = from_slice(inout);
        c = from_slice(out);
        r = from_slice(result.in());
    });
    rotation<KNames>("echo_names", [this](const NamesValue& a, NamesValue& b, NamesValue& c, NamesValue& r) {
        Interop::Names in, inout;
        to_slice(a, in);
        to_slice(b, inout);
        Interop::Names_var out;
        Interop::Names_var result = m_probe->echo_names(in, inout, out.out());
        b = from_slice(inout);
        c = from_slice(out.in());
        r = from_slice(result.in());
    });
    rotation<KTriangle>("echo_triangle",
                        [this](const TriangleValue& a, TriangleValue& b, TriangleValue& c, TriangleValue& r) {
                            Interop::Triangle in, inout, out;
                            to_slice(a, in);
                            to_slice(b, inout);
                            Interop::Triangle_var result = m_probe->echo_triangle(in, inout, out);
                            b = from_slice(inout);
                            c = from_slice(out);
                            r = from_slice(result.in());
                        });
    INTEROP_VARIABLE(KTriangles, echo_triangles, Interop::Triangles_var);

    // A value that is no sample reaches the servant, which refuses it.
    std::string problems = "no exception";
    try {
        CORBA::Long b = 0, c = 0;
        m_probe->echo_long(17, b, c);
    } catch (const CORBA::BAD_PARAM& e) {
        problems = e.minor() == bad_in_value && e.completed() == CORBA::COMPLETED_NO ? "" : CheckReport::text(e);
    }
    m_report.check("echo_long refuses a value that is no sample", problems);
}

void ProbeChecks::anys()
{
    INTEROP_VARIABLE(KAny, echo_any, CORBA::Any_var);

    // The server finds in each any what this side put in.
    std::string problems;
    for (const CORBA::Any& sample : KAny::samples()) {
        CORBA::String_var found = m_probe->inspect_any(sample);
        if (text(found.in()) != describe(sample))
            problems += describe(sample) + " seen as " + text(found.in()) + "; ";
    }
    m_report.check("inspect_any (" + std::to_string(KAny::samples().size()) + " anys)", problems);

    // This side finds in each any what the server put in.
    problems.clear();
    std::size_t calls = 0;
    for (const auto& kind : any_kind_list())
        for (std::size_t i = 0; i < kind.second; ++i, ++calls) {
            const std::string expected = kind.first + " " + std::to_string(i);
            try {
                CORBA::Any_var made = m_probe->make_any(kind.first.c_str(), static_cast<CORBA::Long>(i));
                if (describe(made.in()) != expected)
                    problems += expected + " arrived as " + describe(made.in()) + "; ";
            } catch (const CORBA::Exception& e) {
                problems += expected + ": " + CheckReport::text(e) + "; ";
            }
        }
    m_report.check("make_any (" + std::to_string(calls) + " anys)", problems);

    // References in anys: the server calls the one it finds.
    Interop::Callback_var cb = callback(m_first);
    const CORBA::ULong before = m_first.ping_count();
    CORBA::Any holding;
    holding <<= cb.in();
    CORBA::String_var found = m_probe->inspect_any(holding);
    m_report.check("an any holding a callback reference", text(found.in()) == "Callback 41" &&
                                                             m_first.ping_count() == before + 1,
                   text(found.in()));
    CORBA::Any holding_nil;
    holding_nil <<= Interop::Callback::_nil();
    found = m_probe->inspect_any(holding_nil);
    m_report.check("an any holding a nil reference", text(found.in()) == "Callback nil", text(found.in()));
}

Interop::Callback_ptr ProbeChecks::callback(CallbackServant& servant)
{
    CORBA::Object_var reference = m_poa->servant_to_reference(&servant);
    return Interop::Callback::_narrow(reference.in());
}

void ProbeChecks::references()
{
    Interop::Callback_var first = callback(m_first);
    Interop::Callback_var second = callback(m_second);

    CORBA::ULong before = m_first.ping_count();
    const CORBA::Long answer = m_probe->call_back(first.in(), 20);
    m_report.check("call_back: the server calls the client's object", answer == 41 && m_first.ping_count() == before + 1,
                   "answer " + std::to_string(answer) + ", pings " + std::to_string(m_first.ping_count() - before));

    m_probe->hold(second.in());
    Interop::Callback_var held = m_probe->held();
    before = m_second.ping_count();
    const bool equivalent = !CORBA::is_nil(held.in()) && held->_is_equivalent(second.in());
    const CORBA::Long pong = CORBA::is_nil(held.in()) ? 0 : held->ping(5);
    m_report.check("hold/held: a reference comes back to the object it names",
                   equivalent && pong == 11 && m_second.ping_count() == before + 1,
                   equivalent ? "the returned reference does not reach the servant" : "not equivalent");

    m_probe->notify_held("event from the server");
    const bool notified = eventually([this] {
        const std::vector<std::string> events = m_second.event_list();
        return std::find(events.begin(), events.end(), "event from the server") != events.end();
    });
    m_report.check("notify_held: the server's oneway call reaches the client", notified, "never arrived");
    Interop::StringSeq_var events = held->events();
    const std::vector<std::string> remote = strings_of(events.in());
    m_report.check("events() through the reference the server returned", remote == m_second.event_list(),
                   std::to_string(remote.size()) + " events");

    // Result a, inout becomes a, out the old inout.
    Interop::Callback_var inout = Interop::Callback::_duplicate(second.in());
    Interop::Callback_var out;
    Interop::Callback_var result = m_probe->echo_callback(first.in(), inout.inout(), out.out());
    const CORBA::ULong first_before = m_first.ping_count();
    const CORBA::ULong second_before = m_second.ping_count();
    std::string problems;
    if (CORBA::is_nil(result.in()) || !result->_is_equivalent(first.in()))
        problems += "result; ";
    if (CORBA::is_nil(inout.in()) || !inout->_is_equivalent(first.in()))
        problems += "inout; ";
    if (CORBA::is_nil(out.in()) || !out->_is_equivalent(second.in()))
        problems += "out; ";
    if (problems.empty()) {
        result->ping(1);
        inout->ping(1);
        out->ping(1);
        if (m_first.ping_count() != first_before + 2 || m_second.ping_count() != second_before + 1)
            problems += "calls through the returned references reached the wrong objects";
    }
    m_report.check("echo_callback", problems);

    inout = Interop::Callback::_nil();
    result = m_probe->echo_callback(Interop::Callback::_nil(), inout.inout(), out.out());
    m_report.check("echo_callback with nil references",
                   CORBA::is_nil(result.in()) && CORBA::is_nil(inout.in()) && CORBA::is_nil(out.in()), "not nil");

    Interop::Probe_var self = m_probe->self();
    m_report.check("self: the server's own reference",
                   !CORBA::is_nil(self.in()) && self->_is_equivalent(m_probe.in()) && self->add(2, 3) == 5,
                   "not equivalent or not callable");

    CORBA::Object_var object = m_probe->echo_object(m_probe.in());
    m_report.check("echo_object with the server's reference",
                   !CORBA::is_nil(object.in()) && object->_is_equivalent(m_probe.in()), "not equivalent");
    object = m_probe->echo_object(first.in());
    Interop::Callback_var narrowed = Interop::Callback::_narrow(object.in());
    before = m_first.ping_count();
    m_report.check("echo_object with the client's reference, narrowed",
                   !CORBA::is_nil(narrowed.in()) && narrowed->ping(3) == 7 && m_first.ping_count() == before + 1,
                   "narrowing or calling failed");
    object = m_probe->echo_object(CORBA::Object::_nil());
    m_report.check("echo_object with a nil reference", CORBA::is_nil(object.in()), "not nil");

    // Standard operations answered by the server's ORB.
    m_report.check("_is_a", m_probe->_is_a("IDL:Interop/Probe:1.0") && m_probe->_is_a("IDL:omg.org/CORBA/Object:1.0") &&
                                !m_probe->_is_a("IDL:Interop/Callback:1.0") && !m_probe->_is_a("IDL:Interop/Probe:2.0"),
                   "wrong answer");
    m_report.check("_non_existent of a live object", !m_probe->_non_existent(), "says it does not exist");
    Interop::Callback_var wrong = Interop::Callback::_narrow(m_probe.in());
    m_report.check("_narrow to an interface the object lacks", CORBA::is_nil(wrong.in()), "not nil");

    CORBA::String_var ior = m_orb->object_to_string(m_probe.in());
    CORBA::Object_var parsed = m_orb->string_to_object(ior.in());
    Interop::Probe_var again = Interop::Probe::_narrow(parsed.in());
    m_report.check("object_to_string and back",
                   std::string(ior.in()).rfind("IOR:", 0) == 0 && !CORBA::is_nil(again.in()) &&
                       again->_is_equivalent(m_probe.in()) && again->add(40, 2) == 42,
                   ior.in());
}

void ProbeChecks::lifecycle()
{
    Interop::Probe_var child = m_probe->spawn();
    const bool alive = !CORBA::is_nil(child.in()) && !child->_is_equivalent(m_probe.in()) && child->add(1, 2) == 3;
    m_report.check("spawn: a second object of the server", alive, "not a distinct, working object");
    if (!alive)
        return;
    child->retire();
    bool gone = false;
    std::string detail;
    try {
        gone = child->_non_existent();
        detail = gone ? "" : "_non_existent says it still exists";
    } catch (const CORBA::Exception& e) {
        detail = "_non_existent: " + CheckReport::text(e);
    }
    m_report.check("retire: _non_existent of a deactivated object", gone, detail);
    detail = "no exception";
    try {
        child->add(1, 1);
    } catch (const CORBA::OBJECT_NOT_EXIST&) {
        detail.clear();
    } catch (const CORBA::Exception& e) {
        detail = CheckReport::text(e);
    }
    m_report.check("a call to a deactivated object raises OBJECT_NOT_EXIST", detail);
}

void ProbeChecks::attributes()
{
    const CORBA::ULongLong calls = m_probe->calls();
    for (int i = 0; i < 3; ++i)
        m_probe->add(i, i);
    const CORBA::ULongLong after = m_probe->calls();
    m_report.check("readonly attribute calls", after == calls + 3,
                   std::to_string(calls) + " then " + std::to_string(after));

    m_probe->label("caf\xe9 label");
    CORBA::String_var label = m_probe->label();
    m_report.check("attribute label", text(label.in()) == "caf\xe9 label", show(text(label.in())));

    Interop::Point origin;
    origin.x = -12;
    origin.y = 34;
    m_probe->origin(origin);
    const Interop::Point got = m_probe->origin();
    m_report.check("attribute origin", same(got, origin), "differs");

    m_probe->shade(Interop::blue);
    m_report.check("attribute shade", m_probe->shade() == Interop::blue, "differs");

    std::string problems;
    for (const Interop::ByLong& sample : KByLong::samples()) {
        m_probe->choice(sample);
        Interop::ByLong_var value = m_probe->choice();
        if (!same(value.in(), sample))
            problems += "discriminator " + std::to_string(sample._d()) + "; ";
    }
    m_report.check("attribute choice (a union)", problems);
}

void ProbeChecks::exceptions()
{
    {
        CORBA::String_var note = CORBA::string_dup("hello");
        CORBA::Long code = 0;
        std::string problems;
        try {
            m_probe->fail("none", 0, 0, note.inout(), code);
            if (text(note.in()) != "done: hello" || code != 7)
                problems = "note " + show(text(note.in())) + ", code " + std::to_string(code);
        } catch (const CORBA::Exception& e) {
            problems = CheckReport::text(e);
        }
        m_report.check("fail(none) returns normally", problems);
    }

    // Each call raises; `check` looks at what arrived.
    const auto expect = [this](const char* which, CORBA::ULong minor, CORBA::UShort completed,
                               const std::function<std::string(const CORBA::Exception&)>& check) {
        CORBA::String_var note = CORBA::string_dup("hello");
        CORBA::Long code = 0;
        std::string problems = "no exception";
        try {
            m_probe->fail(which, minor, completed, note.inout(), code);
        } catch (const CORBA::Exception& e) {
            problems = check(e);
        }
        m_report.check(std::string("fail(") + which + ")", problems);
    };

    expect("Refused", 0, 0, [](const CORBA::Exception& e) -> std::string {
        const Interop::Refused* r = Interop::Refused::_downcast(&e);
        if (!r)
            return CheckReport::text(e);
        return r->code == 42 && text(r->reason) == "not today" && r->tint == Interop::blue ? "" : "members differ";
    });
    expect("Overdrawn", 0, 0, [](const CORBA::Exception& e) -> std::string {
        const Interop::Overdrawn* o = Interop::Overdrawn::_downcast(&e);
        if (!o)
            return CheckReport::text(e);
        const std::vector<std::string> notes = strings_of(o->notes);
        return o->amount == Interop::Money("-12.34") && notes == std::vector<std::string>{"first", "caf\xe9"} &&
                       o->where.x == -3 && o->where.y == 9
                   ? ""
                   : "members differ";
    });
    expect("Empty", 0, 0, [](const CORBA::Exception& e) -> std::string {
        return Interop::Empty::_downcast(&e) ? "" : CheckReport::text(e);
    });
    // Exceptions the operation does not declare arrive as UNKNOWN.
    for (const char* which : {"Undeclared", "std"})
        expect(which, 0, 0, [](const CORBA::Exception& e) -> std::string {
            return CORBA::UNKNOWN::_downcast(&e) ? "" : CheckReport::text(e);
        });

    // System exceptions keep their minor code and completion status.
    const struct {
        const char* name;
        CORBA::ULong minor;
        CORBA::UShort completed;
    } system[] = {
        {"BAD_PARAM", 0x4f4d0002, 1},     {"NO_PERMISSION", 0, 0},      {"IMP_LIMIT", 0x49560042, 2},
        {"NO_IMPLEMENT", 3, 1},           {"DATA_CONVERSION", 0xffffffff, 0}, {"INTERNAL", 123456, 2},
        {"NO_MEMORY", 1, 1},              {"MARSHAL", 9, 2},            {"BAD_OPERATION", 2, 0},
        {"OBJECT_NOT_EXIST", 0x4f4d0001, 1}, {"NO_RESOURCES", 5, 2},     {"BAD_INV_ORDER", 0x4f4d0005, 0},
    };
    for (const auto& sys : system) {
        const std::string id = std::string("IDL:omg.org/CORBA/") + sys.name + ":1.0";
        expect(sys.name, sys.minor, sys.completed, [&](const CORBA::Exception& e) -> std::string {
            const CORBA::SystemException* s = CORBA::SystemException::_downcast(&e);
            if (!s || id != e._rep_id() || s->minor() != sys.minor ||
                static_cast<int>(s->completed()) != static_cast<int>(sys.completed))
                return CheckReport::text(e) + ", expected minor " + hex(sys.minor) + " completed " +
                       std::to_string(sys.completed);
            return "";
        });
    }
}

void ProbeChecks::oneways()
{
    Interop::StringSeq_var before = m_probe->posted();
    const std::size_t first = before->length();
    std::vector<std::string> sent;
    for (int i = 0; i < 20; ++i) {
        sent.push_back("note " + std::to_string(i));
        m_probe->post(sent.back().c_str());
    }
    std::vector<std::string> seen;
    const bool arrived = eventually([&] {
        Interop::StringSeq_var posted = m_probe->posted();
        seen = strings_of(posted.in());
        return seen.size() >= first + sent.size();
    });
    seen.erase(seen.begin(), seen.begin() + static_cast<std::ptrdiff_t>(std::min(first, seen.size())));
    std::vector<std::string> sorted_seen = seen, sorted_sent = sent;
    std::sort(sorted_seen.begin(), sorted_seen.end());
    std::sort(sorted_sent.begin(), sorted_sent.end());
    m_report.check("post: 20 oneway calls arrive", arrived && sorted_seen == sorted_sent,
                   std::to_string(seen.size()) + " arrived");
}

void ProbeChecks::concurrency()
{
    // Several threads share the client's connection; every reply must reach
    // the call it answers.
    std::atomic<int> wrong(0);
    std::atomic<int> failed(0);
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t)
        threads.emplace_back([&, t] {
            for (int i = 0; i < 200; ++i) {
                try {
                    if (m_probe->add(t * 1000, i) != t * 1000 + i)
                        ++wrong;
                } catch (const CORBA::Exception&) {
                    ++failed;
                }
            }
        });
    for (std::thread& t : threads)
        t.join();
    m_report.check("8 threads x 200 calls on one reference", wrong == 0 && failed == 0,
                   std::to_string(wrong) + " wrong answers, " + std::to_string(failed) + " exceptions");
}

} // namespace interop
