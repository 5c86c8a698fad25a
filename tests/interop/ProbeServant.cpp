#include "ProbeServant.h"

#include "InteropValues.h"

#include <cstring>
#include <stdexcept>

namespace interop {

namespace {

// The index of the sample `a` is, after checking that `b` is the sample
// after it.
template <class K>
std::size_t received(const typename K::T& a, const typename K::T& b)
{
    const std::vector<typename K::T>& s = K::samples();
    const std::size_t i = sample_index<K>(a);
    if (i == npos)
        throw CORBA::BAD_PARAM(bad_in_value, CORBA::COMPLETED_NO);
    if (!same(b, s[(i + 1) % s.size()]))
        throw CORBA::BAD_PARAM(bad_inout_value, CORBA::COMPLETED_NO);
    return i;
}

// The sample the result carries for a = s[i] (a copy: the samples of
// boolean are a std::vector<bool>).
template <class K>
typename K::T result_for(std::size_t i)
{
    const std::vector<typename K::T>& s = K::samples();
    return s[(i + 2) % s.size()];
}

// Values passed by value or by reference (basic types, enumerations, fixed,
// fixed-length structures): c = b, b = a, result s[i+2].
template <class K>
typename K::T rotate(const typename K::T& a, typename K::T& b, typename K::T& c)
{
    const std::size_t i = received<K>(a, b);
    c = b;
    b = a;
    return result_for<K>(i);
}

// Variable-length values: the out value and the result are new values the
// caller's ORB takes over.
template <class K, class Out>
typename K::T* rotate_var(const typename K::T& a, typename K::T& b, Out c)
{
    typedef typename K::T T;
    const std::size_t i = received<K>(a, b);
    c = new T(b);
    b = a;
    return new T(result_for<K>(i));
}

template <class K, class Out>
char* rotate_string(const char* a, char*& b, Out c)
{
    const std::size_t i = received<K>(a, b);
    c = b; // the out argument takes the old inout string over
    b = CORBA::string_dup(a);
    return CORBA::string_dup(result_for<K>(i).c_str());
}

template <class K, class Out>
CORBA::WChar* rotate_wstring(const CORBA::WChar* a, CORBA::WChar*& b, Out c)
{
    const std::size_t i = received<K>(a, b);
    c = b;
    b = CORBA::wstring_dup(a);
    return CORBA::wstring_dup(result_for<K>(i).c_str());
}

CORBA::CompletionStatus completion(CORBA::UShort completed)
{
    switch (completed) {
    case 0:
        return CORBA::COMPLETED_YES;
    case 1:
        return CORBA::COMPLETED_NO;
    default:
        return CORBA::COMPLETED_MAYBE;
    }
}

// The system exceptions fail() raises by name.
void raise_system(const std::string& name, CORBA::ULong minor, CORBA::CompletionStatus completed)
{
#define INTEROP_RAISE(exception)                                                                   \
    if (name == #exception)                                                                        \
        throw CORBA::exception(minor, completed);
    INTEROP_RAISE(BAD_PARAM)
    INTEROP_RAISE(NO_PERMISSION)
    INTEROP_RAISE(IMP_LIMIT)
    INTEROP_RAISE(NO_IMPLEMENT)
    INTEROP_RAISE(DATA_CONVERSION)
    INTEROP_RAISE(INTERNAL)
    INTEROP_RAISE(NO_MEMORY)
    INTEROP_RAISE(MARSHAL)
    INTEROP_RAISE(BAD_OPERATION)
    INTEROP_RAISE(OBJECT_NOT_EXIST)
    INTEROP_RAISE(NO_RESOURCES)
    INTEROP_RAISE(BAD_INV_ORDER)
#undef INTEROP_RAISE
}

} // namespace

ProbeServant::ProbeServant(CORBA::ORB_ptr orb, PortableServer::POA_ptr poa, const char* orb_name)
    : m_orb(CORBA::ORB::_duplicate(orb)), m_poa(PortableServer::POA::_duplicate(poa)), m_orb_name(orb_name)
{
    m_origin.x = 0;
    m_origin.y = 0;
    m_choice.number(0);
}

PortableServer::POA_ptr ProbeServant::_default_POA()
{
    return PortableServer::POA::_duplicate(m_poa);
}

// ------------------------------------------------------------ basic types

CORBA::Short ProbeServant::echo_short(CORBA::Short a, CORBA::Short& b, CORBA::Short_out c)
{
    return rotate<KShort>(a, b, c);
}

CORBA::UShort ProbeServant::echo_ushort(CORBA::UShort a, CORBA::UShort& b, CORBA::UShort_out c)
{
    return rotate<KUShort>(a, b, c);
}

CORBA::Long ProbeServant::echo_long(CORBA::Long a, CORBA::Long& b, CORBA::Long_out c)
{
    return rotate<KLong>(a, b, c);
}

CORBA::ULong ProbeServant::echo_ulong(CORBA::ULong a, CORBA::ULong& b, CORBA::ULong_out c)
{
    return rotate<KULong>(a, b, c);
}

CORBA::LongLong ProbeServant::echo_longlong(CORBA::LongLong a, CORBA::LongLong& b, CORBA::LongLong_out c)
{
    return rotate<KLongLong>(a, b, c);
}

CORBA::ULongLong ProbeServant::echo_ulonglong(CORBA::ULongLong a, CORBA::ULongLong& b, CORBA::ULongLong_out c)
{
    return rotate<KULongLong>(a, b, c);
}

CORBA::Float ProbeServant::echo_float(CORBA::Float a, CORBA::Float& b, CORBA::Float_out c)
{
    return rotate<KFloat>(a, b, c);
}

CORBA::Double ProbeServant::echo_double(CORBA::Double a, CORBA::Double& b, CORBA::Double_out c)
{
    return rotate<KDouble>(a, b, c);
}

CORBA::LongDouble ProbeServant::echo_longdouble(CORBA::LongDouble a, CORBA::LongDouble& b, CORBA::LongDouble_out c)
{
    return rotate<KLongDouble>(a, b, c);
}

CORBA::Boolean ProbeServant::echo_boolean(CORBA::Boolean a, CORBA::Boolean& b, CORBA::Boolean_out c)
{
    return rotate<KBoolean>(a, b, c);
}

CORBA::Char ProbeServant::echo_char(CORBA::Char a, CORBA::Char& b, CORBA::Char_out c)
{
    return rotate<KChar>(a, b, c);
}

CORBA::WChar ProbeServant::echo_wchar(CORBA::WChar a, CORBA::WChar& b, CORBA::WChar_out c)
{
    return rotate<KWChar>(a, b, c);
}

CORBA::Octet ProbeServant::echo_octet(CORBA::Octet a, CORBA::Octet& b, CORBA::Octet_out c)
{
    return rotate<KOctet>(a, b, c);
}

// ---------------------------------------------------------------- strings

char* ProbeServant::echo_string(const char* a, char*& b, CORBA::String_out c)
{
    return rotate_string<KString>(a, b, c);
}

char* ProbeServant::echo_shortname(const char* a, char*& b, Interop::ShortName_out c)
{
    return rotate_string<KShortName>(a, b, c);
}

CORBA::WChar* ProbeServant::echo_wstring(const CORBA::WChar* a, CORBA::WChar*& b, CORBA::WString_out c)
{
    return rotate_wstring<KWString>(a, b, c);
}

CORBA::WChar* ProbeServant::echo_shortwname(const CORBA::WChar* a, CORBA::WChar*& b, Interop::ShortWName_out c)
{
    return rotate_wstring<KShortWName>(a, b, c);
}

// ------------------------------------ enumerations, typedef chains, fixed

Interop::Color ProbeServant::echo_color(Interop::Color a, Interop::Color& b, Interop::Color_out c)
{
    return rotate<KColor>(a, b, c);
}

Interop::Score ProbeServant::echo_score(Interop::Score a, Interop::Tally& b, Interop::Count_out c)
{
    return rotate<KScore>(a, b, c);
}

Interop::Money ProbeServant::echo_money(const Interop::Money& a, Interop::Money& b, Interop::Money_out c)
{
    return rotate<KMoney>(a, b, c);
}

Interop::BigDecimal ProbeServant::echo_bigdecimal(const Interop::BigDecimal& a, Interop::BigDecimal& b,
                                                  Interop::BigDecimal_out c)
{
    return rotate<KBigDecimal>(a, b, c);
}

// ------------------------------------------------------------- structures

Interop::Point ProbeServant::echo_point(const Interop::Point& a, Interop::Point& b, Interop::Point_out c)
{
    return rotate<KPoint>(a, b, c);
}

Interop::Basics ProbeServant::echo_basics(const Interop::Basics& a, Interop::Basics& b, Interop::Basics_out c)
{
    return rotate<KBasics>(a, b, c);
}

Interop::Person* ProbeServant::echo_person(const Interop::Person& a, Interop::Person& b, Interop::Person_out c)
{
    return rotate_var<KPerson>(a, b, c);
}

Interop::Tree* ProbeServant::echo_tree(const Interop::Tree& a, Interop::Tree& b, Interop::Tree_out c)
{
    return rotate_var<KTree>(a, b, c);
}

// ----------------------------------------------------------------- unions

Interop::ByLong* ProbeServant::echo_bylong(const Interop::ByLong& a, Interop::ByLong& b, Interop::ByLong_out c)
{
    return rotate_var<KByLong>(a, b, c);
}

Interop::ByColor* ProbeServant::echo_bycolor(const Interop::ByColor& a, Interop::ByColor& b, Interop::ByColor_out c)
{
    return rotate_var<KByColor>(a, b, c);
}

Interop::ByChar* ProbeServant::echo_bychar(const Interop::ByChar& a, Interop::ByChar& b, Interop::ByChar_out c)
{
    return rotate_var<KByChar>(a, b, c);
}

Interop::ByBool* ProbeServant::echo_bybool(const Interop::ByBool& a, Interop::ByBool& b, Interop::ByBool_out c)
{
    return rotate_var<KByBool>(a, b, c);
}

Interop::ByUShort* ProbeServant::echo_byushort(const Interop::ByUShort& a, Interop::ByUShort& b,
                                               Interop::ByUShort_out c)
{
    return rotate_var<KByUShort>(a, b, c);
}

Interop::ByLongLong* ProbeServant::echo_bylonglong(const Interop::ByLongLong& a, Interop::ByLongLong& b,
                                                   Interop::ByLongLong_out c)
{
    return rotate_var<KByLongLong>(a, b, c);
}

// -------------------------------------------------------------- sequences

Interop::LongSeq* ProbeServant::echo_longseq(const Interop::LongSeq& a, Interop::LongSeq& b, Interop::LongSeq_out c)
{
    return rotate_var<KLongSeq>(a, b, c);
}

Interop::ShortLongSeq* ProbeServant::echo_shortlongseq(const Interop::ShortLongSeq& a, Interop::ShortLongSeq& b,
                                                       Interop::ShortLongSeq_out c)
{
    return rotate_var<KShortLongSeq>(a, b, c);
}

Interop::StringSeq* ProbeServant::echo_stringseq(const Interop::StringSeq& a, Interop::StringSeq& b,
                                                 Interop::StringSeq_out c)
{
    return rotate_var<KStringSeq>(a, b, c);
}

Interop::WStringSeq* ProbeServant::echo_wstringseq(const Interop::WStringSeq& a, Interop::WStringSeq& b,
                                                   Interop::WStringSeq_out c)
{
    return rotate_var<KWStringSeq>(a, b, c);
}

Interop::LongSeqSeq* ProbeServant::echo_longseqseq(const Interop::LongSeqSeq& a, Interop::LongSeqSeq& b,
                                                   Interop::LongSeqSeq_out c)
{
    return rotate_var<KLongSeqSeq>(a, b, c);
}

Interop::PersonSeq* ProbeServant::echo_personseq(const Interop::PersonSeq& a, Interop::PersonSeq& b,
                                                 Interop::PersonSeq_out c)
{
    return rotate_var<KPersonSeq>(a, b, c);
}

Interop::UnionSeq* ProbeServant::echo_unionseq(const Interop::UnionSeq& a, Interop::UnionSeq& b,
                                               Interop::UnionSeq_out c)
{
    return rotate_var<KUnionSeq>(a, b, c);
}

Interop::Octets* ProbeServant::echo_octets(const Interop::Octets& a, Interop::Octets& b, Interop::Octets_out c)
{
    return rotate_var<KOctets>(a, b, c);
}

// ----------------------------------------------------------------- arrays

Interop::Matrix_slice* ProbeServant::echo_matrix(const Interop::Matrix a, Interop::Matrix b, Interop::Matrix_out c)
{
    const MatrixValue in = from_slice(a);
    const MatrixValue inout = from_slice(b);
    const std::size_t i = received<KMatrix>(in, inout);
    to_slice(inout, c);
    to_slice(in, b);
    Interop::Matrix_slice* result = Interop::Matrix_alloc();
    to_slice(result_for<KMatrix>(i), result);
    return result;
}

Interop::Names_slice* ProbeServant::echo_names(const Interop::Names a, Interop::Names b, Interop::Names_out c)
{
    const NamesValue in = from_slice(a);
    const NamesValue inout = from_slice(b);
    const std::size_t i = received<KNames>(in, inout);
    Interop::Names_slice* out = Interop::Names_alloc();
    to_slice(inout, out);
    c = out;
    to_slice(in, b);
    Interop::Names_slice* result = Interop::Names_alloc();
    to_slice(result_for<KNames>(i), result);
    return result;
}

Interop::Triangle_slice* ProbeServant::echo_triangle(const Interop::Triangle a, Interop::Triangle b,
                                                     Interop::Triangle_out c)
{
    const TriangleValue in = from_slice(a);
    const TriangleValue inout = from_slice(b);
    const std::size_t i = received<KTriangle>(in, inout);
    to_slice(inout, c);
    to_slice(in, b);
    Interop::Triangle_slice* result = Interop::Triangle_alloc();
    to_slice(result_for<KTriangle>(i), result);
    return result;
}

Interop::Triangles* ProbeServant::echo_triangles(const Interop::Triangles& a, Interop::Triangles& b,
                                                 Interop::Triangles_out c)
{
    return rotate_var<KTriangles>(a, b, c);
}

// ------------------------------------------------------------------- anys

CORBA::Any* ProbeServant::echo_any(const CORBA::Any& a, CORBA::Any& b, CORBA::Any_out c)
{
    return rotate_var<KAny>(a, b, c);
}

char* ProbeServant::inspect_any(const CORBA::Any& value)
{
    // A reference is called, so that the answer shows it reached its object.
    Interop::Callback_ptr callback = Interop::Callback::_nil();
    if (value >>= callback) {
        if (CORBA::is_nil(callback))
            return CORBA::string_dup("Callback nil");
        return CORBA::string_dup(("Callback " + std::to_string(callback->ping(20))).c_str());
    }
    return CORBA::string_dup(describe(value).c_str());
}

CORBA::Any* ProbeServant::make_any(const char* kind, CORBA::Long index)
{
    CORBA::Any_var value = new CORBA::Any;
    if (!interop::make_any(kind, index, value.inout()))
        throw CORBA::BAD_PARAM(bad_in_value, CORBA::COMPLETED_NO);
    return value._retn();
}

// ------------------------------------------------------- object references

CORBA::Long ProbeServant::call_back(Interop::Callback_ptr cb, CORBA::Long value)
{
    if (CORBA::is_nil(cb))
        throw CORBA::BAD_PARAM(bad_in_value, CORBA::COMPLETED_NO);
    return cb->ping(value);
}

void ProbeServant::hold(Interop::Callback_ptr cb)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_held = Interop::Callback::_duplicate(cb);
}

Interop::Callback_ptr ProbeServant::held()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return Interop::Callback::_duplicate(m_held.in());
}

void ProbeServant::notify_held(const char* event)
{
    Interop::Callback_var target = held();
    if (CORBA::is_nil(target))
        throw CORBA::BAD_INV_ORDER(bad_in_value, CORBA::COMPLETED_NO);
    target->notify(event);
}

Interop::Callback_ptr ProbeServant::echo_callback(Interop::Callback_ptr a, Interop::Callback_ptr& b,
                                                  Interop::Callback_out c)
{
    c = b; // the out argument takes the old inout reference over
    b = Interop::Callback::_duplicate(a);
    return Interop::Callback::_duplicate(a);
}

Interop::Probe_ptr ProbeServant::self()
{
    return _this();
}

Interop::Probe_ptr ProbeServant::spawn()
{
    ProbeServant* child = new ProbeServant(m_orb, m_poa, m_orb_name.c_str());
    PortableServer::ObjectId_var id = m_poa->activate_object(child);
    child->_remove_ref(); // the adapter holds the only reference now
    CORBA::Object_var reference = m_poa->id_to_reference(id.in());
    return Interop::Probe::_narrow(reference.in());
}

void ProbeServant::retire()
{
    PortableServer::ObjectId_var id = m_poa->servant_to_id(this);
    m_poa->deactivate_object(id.in());
}

CORBA::Object_ptr ProbeServant::echo_object(CORBA::Object_ptr a)
{
    return CORBA::Object::_duplicate(a);
}

// ------------------------------------------------------------- attributes

char* ProbeServant::version()
{
    return CORBA::string_dup(m_orb_name.c_str());
}

CORBA::ULongLong ProbeServant::calls()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_calls;
}

char* ProbeServant::label()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return CORBA::string_dup(m_label.c_str());
}

void ProbeServant::label(const char* value)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_label = value;
}

Interop::Point ProbeServant::origin()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_origin;
}

void ProbeServant::origin(const Interop::Point& value)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_origin = value;
}

Interop::Color ProbeServant::shade()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_shade;
}

void ProbeServant::shade(Interop::Color value)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_shade = value;
}

Interop::ByLong* ProbeServant::choice()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    return new Interop::ByLong(m_choice);
}

void ProbeServant::choice(const Interop::ByLong& value)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_choice = value;
}

// ------------------------------------------------------------- exceptions

void ProbeServant::fail(const char* which, CORBA::ULong minor, CORBA::UShort completed, char*& note,
                        CORBA::Long_out code)
{
    const std::string what = which;
    if (what == "none") {
        const std::string done = std::string("done: ") + note;
        CORBA::string_free(note);
        note = CORBA::string_dup(done.c_str());
        code = 7;
        return;
    }
    if (what == "Refused")
        throw Interop::Refused(42, "not today", Interop::blue);
    if (what == "Overdrawn") {
        Interop::StringSeq notes;
        notes.length(2);
        notes[0] = "first";
        notes[1] = "caf\xe9";
        Interop::Point where;
        where.x = -3;
        where.y = 9;
        throw Interop::Overdrawn(Interop::Money("-12.34"), notes, where);
    }
    if (what == "Empty")
        throw Interop::Empty();
    if (what == "Undeclared")
        throw Interop::Undeclared("not in the raises clause");
    if (what == "std")
        throw std::runtime_error("not a CORBA exception");
    raise_system(what, minor, completion(completed));
    throw CORBA::BAD_PARAM(bad_in_value, CORBA::COMPLETED_NO);
}

// ----------------------------------------------------------------- oneway

void ProbeServant::post(const char* note)
{
    std::lock_guard<std::mutex> lock(m_mutex);
    m_posted.push_back(note);
}

Interop::StringSeq* ProbeServant::posted()
{
    std::lock_guard<std::mutex> lock(m_mutex);
    Interop::StringSeq_var notes = new Interop::StringSeq;
    notes->length(static_cast<CORBA::ULong>(m_posted.size()));
    for (std::size_t i = 0; i < m_posted.size(); ++i)
        notes[static_cast<CORBA::ULong>(i)] = m_posted[i].c_str();
    return notes._retn();
}

// ------------------------------------------------------------ small calls

CORBA::Long ProbeServant::add(CORBA::Long a, CORBA::Long b)
{
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        ++m_calls;
    }
    return static_cast<CORBA::Long>(static_cast<CORBA::ULong>(a) + static_cast<CORBA::ULong>(b));
}

Interop::Octets* ProbeServant::bounce(const Interop::Octets& data)
{
    return new Interop::Octets(data);
}

} // namespace interop
