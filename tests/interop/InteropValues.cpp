#include "InteropValues.h"

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <limits>
#include <utility>

namespace interop {

namespace {

Interop::Point point(CORBA::Long x, CORBA::Long y)
{
    Interop::Point p;
    p.x = x;
    p.y = y;
    return p;
}

template <class Seq, class T>
Seq sequence_of(const std::vector<T>& values)
{
    Seq s;
    s.length(static_cast<CORBA::ULong>(values.size()));
    for (std::size_t i = 0; i < values.size(); ++i)
        s[static_cast<CORBA::ULong>(i)] = values[i];
    return s;
}

// 0, 1, 2, ... n-1 scrambled a little, so that a shifted or reversed
// sequence does not pass for the original.
Interop::LongSeq counting(CORBA::ULong n)
{
    Interop::LongSeq s;
    s.length(n);
    for (CORBA::ULong i = 0; i < n; ++i)
        s[i] = static_cast<CORBA::Long>(i * 2654435761u);
    return s;
}

Interop::Person person(const char* name, const CORBA::WChar* wname, const char* nick,
                       const Interop::LongSeq& numbers, Interop::Point house, Interop::Color favourite)
{
    Interop::Person p;
    p.name = name;
    p.wname = wname;
    p.nick = nick;
    p.numbers = numbers;
    p.house = house;
    p.favourite = favourite;
    return p;
}

Interop::Tree tree(const char* label, const std::vector<Interop::Tree>& children)
{
    Interop::Tree t;
    t.label = label;
    t.children = sequence_of<Interop::Forest>(children);
    return t;
}

Interop::Basics basics(int n)
{
    Interop::Basics b;
    switch (n) {
    case 0:
        b.s = 0;
        b.us = 0;
        b.l = 0;
        b.ul = 0;
        b.ll = 0;
        b.ull = 0;
        b.f = 0.0f;
        b.d = 0.0;
        b.b = false;
        b.c = 'A';
        b.wc = L'A';
        b.o = 0;
        b.tint = Interop::red;
        b.where = point(0, 0);
        break;
    case 1:
        b.s = -32768;
        b.us = 65535;
        b.l = INT32_MIN;
        b.ul = UINT32_MAX;
        b.ll = INT64_MIN;
        b.ull = UINT64_MAX;
        b.f = -FLT_MAX;
        b.d = DBL_MAX;
        b.b = true;
        b.c = CORBA::Char(0xe9);
        b.wc = L'\u20ac';
        b.o = 255;
        b.tint = Interop::black;
        b.where = point(-1, 1);
        break;
    default:
        b.s = 12345;
        b.us = 1;
        b.l = 7;
        b.ul = 4000000000u;
        b.ll = 1234567890123456789;
        b.ull = 1;
        b.f = 1.5f;
        b.d = -0.1;
        b.b = true;
        b.c = '~';
        b.wc = L'\u65e5';
        b.o = 128;
        b.tint = Interop::green;
        b.where = point(INT32_MAX, INT32_MIN);
        break;
    }
    return b;
}

typedef std::decay<decltype(std::declval<const Interop::ByColor&>().path())>::type PathSeq;

} // namespace

// ---------------------------------------------------------------- samples

#define INTEROP_SAMPLES(kind, ...)                                             \
    const std::vector<kind::T>& kind::samples()                                \
    {                                                                          \
        static const std::vector<T> values = __VA_ARGS__;                      \
        return values;                                                         \
    }

INTEROP_SAMPLES(KShort, {0, -1, 32767, -32768, 1234})
INTEROP_SAMPLES(KUShort, {0, 65535, 1, 40000})
INTEROP_SAMPLES(KLong, {0, -1, INT32_MAX, INT32_MIN, 123456789})
INTEROP_SAMPLES(KULong, {0, UINT32_MAX, 1, 3000000000u})
INTEROP_SAMPLES(KLongLong, {0, -1, INT64_MAX, INT64_MIN, 1234567890123})
INTEROP_SAMPLES(KULongLong, {0, UINT64_MAX, 1, 10000000000000000000u})
INTEROP_SAMPLES(KFloat, {0.0f, -1.5f, FLT_MAX, FLT_MIN, std::numeric_limits<float>::infinity(),
                         std::numeric_limits<float>::denorm_min()})
INTEROP_SAMPLES(KDouble, {0.0, 3.141592653589793, -DBL_MAX, DBL_MIN, -std::numeric_limits<double>::infinity(),
                          std::numeric_limits<double>::denorm_min()})
// Values a double cannot hold: more digits, a larger exponent.
INTEROP_SAMPLES(KLongDouble, {0.0L, 1.0L / 3.0L, -2.5L, 1.0e4000L, 1.0e-4000L})
INTEROP_SAMPLES(KBoolean, {true, false})
INTEROP_SAMPLES(KChar, {'a', '\0', 'Z', CORBA::Char(0xe9), '\x7f', ' '})
INTEROP_SAMPLES(KWChar, {L'a', L'\u00e9', L'\u20ac', L'\u65e5', L'\0'})
INTEROP_SAMPLES(KOctet, {0, 255, 127, 128})
INTEROP_SAMPLES(KString, {"", "hello", "caf\xe9", "spaces, punctuation; \"quotes\" and\ttabs\n",
                          std::string(3000, 'x') + "end"})
INTEROP_SAMPLES(KShortName, {"", "eight ch", "x", "nick"})
// Wide characters stay in the basic multilingual plane: omniORB's UTF-16
// refuses surrogate pairs.
INTEROP_SAMPLES(KWString, {L"", L"wide", L"Gr\u00fc\u00dfe \u20ac", L"\u65e5\u672c\u8a9e",
                           std::wstring(2000, L'\u00e9')})
INTEROP_SAMPLES(KShortWName, {L"", L"twelve chars", L"\u00e9t\u00e9"})
INTEROP_SAMPLES(KColor, {Interop::red, Interop::green, Interop::blue, Interop::black})
INTEROP_SAMPLES(KScore, {7, -7, 0, 100000})
INTEROP_SAMPLES(KMoney, {Interop::Money("1234567.89"), Interop::Money("-0.01"), Interop::Money("42.50"),
                         Interop::Money("0")})
INTEROP_SAMPLES(KBigDecimal, {Interop::BigDecimal("1234567890123456789012345.123456"),
                              Interop::BigDecimal("-0.000001"), Interop::BigDecimal("0"),
                              Interop::BigDecimal("-9999999999999999999999999.999999")})
INTEROP_SAMPLES(KPoint, {point(0, 0), point(-1, 1), point(INT32_MAX, INT32_MIN)})
INTEROP_SAMPLES(KBasics, {basics(0), basics(1), basics(2)})
INTEROP_SAMPLES(KPerson, {person("", L"", "", Interop::LongSeq(), point(0, 0), Interop::red),
                          person("Ann", L"\u00c5sa \u20ac", "annie", counting(3), point(3, -4), Interop::black),
                          person("Bernard d'\xe9t\xe9", L"\u65e5\u672c", "eight ch", counting(1000),
                                 point(INT32_MIN, INT32_MAX), Interop::blue)})
INTEROP_SAMPLES(KTree, {tree("leaf", {}),
                        tree("root", {tree("a", {}), tree("b", {tree("b1", {}), tree("b2", {})})}),
                        tree("deep", {tree("1", {tree("2", {tree("3", {tree("4", {})})})})})})

const std::vector<Interop::ByLong>& KByLong::samples()
{
    static const std::vector<T> values = [] {
        std::vector<T> v(5);
        v[0].number(5);
        v[1].text("two");
        v[2].text("three");
        v[2]._d(3);
        v[3].where(point(1, 2));
        v[3]._d(-7);
        v[4].where(point(0, 0));
        v[4]._d(4);
        return v;
    }();
    return values;
}

const std::vector<Interop::ByColor>& KByColor::samples()
{
    static const std::vector<T> values = [] {
        std::vector<T> v(4);
        v[0].level(9);
        v[1].who(KPerson::samples()[1]);
        v[2].path(sequence_of<PathSeq>(KPoint::samples()));
        v[3]._default();
        return v;
    }();
    return values;
}

const std::vector<Interop::ByChar>& KByChar::samples()
{
    static const std::vector<T> values = [] {
        std::vector<T> v(3);
        v[0].real(2.5);
        v[1].wide(L"w\u00e9");
        v[2]._default();
        v[2]._d('z');
        return v;
    }();
    return values;
}

const std::vector<Interop::ByBool>& KByBool::samples()
{
    static const std::vector<T> values = [] {
        std::vector<T> v(2);
        v[0].yes(-1);
        v[1].no("nope");
        return v;
    }();
    return values;
}

const std::vector<Interop::ByUShort>& KByUShort::samples()
{
    static const std::vector<T> values = [] {
        std::vector<T> v(4);
        v[0].all(basics(1));
        CORBA::Any inner;
        inner <<= KLong::samples()[2];
        v[1].anything(inner);
        v[2].name("nm");
        v[2]._d(100);
        v[3].name("");
        v[3]._d(0);
        return v;
    }();
    return values;
}

const std::vector<Interop::ByLongLong>& KByLongLong::samples()
{
    static const std::vector<T> values = [] {
        std::vector<T> v(3);
        v[0].big(UINT64_MAX - 1);
        v[1].inner(KByLong::samples()[2]);
        v[2]._default();
        v[2]._d(0);
        return v;
    }();
    return values;
}

INTEROP_SAMPLES(KLongSeq, {Interop::LongSeq(), counting(3), counting(10000), sequence_of<Interop::LongSeq>(
                                                                              std::vector<CORBA::Long>{-1})})
INTEROP_SAMPLES(KShortLongSeq, {Interop::ShortLongSeq(),
                                sequence_of<Interop::ShortLongSeq>(std::vector<CORBA::Long>{1, 2, 3, 4}),
                                sequence_of<Interop::ShortLongSeq>(std::vector<CORBA::Long>{9})})

const std::vector<Interop::StringSeq>& KStringSeq::samples()
{
    static const std::vector<T> values = [] {
        std::vector<T> v(3);
        v[1] = sequence_of<Interop::StringSeq>(std::vector<const char*>{"a", "", "caf\xe9"});
        v[2].length(100);
        for (CORBA::ULong i = 0; i < 100; ++i)
            v[2][i] = std::string(i, static_cast<char>('a' + i % 26)).c_str();
        return v;
    }();
    return values;
}

INTEROP_SAMPLES(KWStringSeq,
                {Interop::WStringSeq(),
                 sequence_of<Interop::WStringSeq>(std::vector<const CORBA::WChar*>{L"x", L"\u00e9"}),
                 sequence_of<Interop::WStringSeq>(std::vector<const CORBA::WChar*>{L"", L"", L"\u20ac"})})
INTEROP_SAMPLES(KLongSeqSeq, {Interop::LongSeqSeq(),
                              sequence_of<Interop::LongSeqSeq>(
                                  std::vector<Interop::LongSeq>{Interop::LongSeq(), counting(1), counting(2)}),
                              sequence_of<Interop::LongSeqSeq>(std::vector<Interop::LongSeq>{counting(7)})})
INTEROP_SAMPLES(KPersonSeq, {Interop::PersonSeq(),
                             sequence_of<Interop::PersonSeq>(std::vector<Interop::Person>{
                                 KPerson::samples()[0], KPerson::samples()[1]}),
                             sequence_of<Interop::PersonSeq>(std::vector<Interop::Person>{KPerson::samples()[2]})})
INTEROP_SAMPLES(KUnionSeq, {Interop::UnionSeq(), sequence_of<Interop::UnionSeq>(KByLong::samples()),
                            sequence_of<Interop::UnionSeq>(std::vector<Interop::ByLong>{KByLong::samples()[3]})})

const std::vector<Interop::Octets>& KOctets::samples()
{
    static const std::vector<T> values = [] {
        std::vector<T> v(3);
        v[1].length(256);
        for (CORBA::ULong i = 0; i < 256; ++i)
            v[1][i] = static_cast<CORBA::Octet>(i);
        // Larger than the fragments and buffers ORBs commonly use.
        v[2].length(100000);
        for (CORBA::ULong i = 0; i < 100000; ++i)
            v[2][i] = static_cast<CORBA::Octet>(i * 7 + i / 256);
        return v;
    }();
    return values;
}

INTEROP_SAMPLES(KMatrix, {MatrixValue{},
                          MatrixValue{{{{1, 2, 3, 4}}, {{5, 6, 7, 8}}, {{9, 10, 11, 12}}}},
                          MatrixValue{{{{-1, INT32_MIN, INT32_MAX, 0}}, {{0, 0, 0, 1}}, {{2, 0, 0, 0}}}}})
INTEROP_SAMPLES(KNames, {NamesValue{},
                         NamesValue{{{{"a", "b", "c"}}, {{"d", "e", "f"}}}},
                         NamesValue{{{{"", "caf\xe9", ""}}, {{std::string(500, 'n'), "", "z"}}}}})
INTEROP_SAMPLES(KTriangle, {TriangleValue{{point(0, 0), point(1, 0), point(0, 1)}},
                            TriangleValue{{point(-5, -5), point(5, -5), point(0, 5)}},
                            TriangleValue{{point(INT32_MIN, 0), point(INT32_MAX, 0), point(0, 0)}}})

const std::vector<Interop::Triangles>& KTriangles::samples()
{
    static const std::vector<T> values = [] {
        std::vector<T> v(3);
        const std::vector<TriangleValue>& t = KTriangle::samples();
        v[1].length(1);
        to_slice(t[1], v[1][0]);
        v[2].length(3);
        for (CORBA::ULong i = 0; i < 3; ++i)
            to_slice(t[i], v[2][i]);
        return v;
    }();
    return values;
}

// ------------------------------------------------------------ equality

bool same_text(const char* a, const char* b)
{
    return a && b ? std::strcmp(a, b) == 0 : a == b;
}

bool same_text(const CORBA::WChar* a, const CORBA::WChar* b)
{
    return a && b ? std::wcscmp(a, b) == 0 : a == b;
}

namespace {

template <class Seq, class Equal>
bool same_elements(const Seq& a, const Seq& b, Equal equal)
{
    if (a.length() != b.length())
        return false;
    for (CORBA::ULong i = 0; i < a.length(); ++i)
        if (!equal(a[i], b[i]))
            return false;
    return true;
}

const auto same_value = [](const auto& x, const auto& y) { return same(x, y); };

} // namespace

bool same(const Interop::Point& a, const Interop::Point& b)
{
    return a.x == b.x && a.y == b.y;
}

bool same(const Interop::Basics& a, const Interop::Basics& b)
{
    return a.s == b.s && a.us == b.us && a.l == b.l && a.ul == b.ul && a.ll == b.ll && a.ull == b.ull &&
           a.f == b.f && a.d == b.d && a.b == b.b && a.c == b.c && a.wc == b.wc && a.o == b.o &&
           a.tint == b.tint && same(a.where, b.where);
}

bool same(const Interop::Person& a, const Interop::Person& b)
{
    return same_text(a.name, b.name) && same_text(a.wname, b.wname) && same_text(a.nick, b.nick) &&
           same(a.numbers, b.numbers) && same(a.house, b.house) && a.favourite == b.favourite;
}

bool same(const Interop::Tree& a, const Interop::Tree& b)
{
    return same_text(a.label, b.label) && same_elements(a.children, b.children, same_value);
}

bool same(const Interop::ByLong& a, const Interop::ByLong& b)
{
    if (a._d() != b._d())
        return false;
    switch (a._d()) {
    case 1:
        return a.number() == b.number();
    case 2:
    case 3:
        return same_text(a.text(), b.text());
    default:
        return same(a.where(), b.where());
    }
}

bool same(const Interop::ByColor& a, const Interop::ByColor& b)
{
    if (a._d() != b._d())
        return false;
    switch (a._d()) {
    case Interop::red:
        return a.level() == b.level();
    case Interop::green:
        return same(a.who(), b.who());
    case Interop::blue:
        return same_elements(a.path(), b.path(), same_value);
    default:
        return true;
    }
}

bool same(const Interop::ByChar& a, const Interop::ByChar& b)
{
    if (a._d() != b._d())
        return false;
    switch (a._d()) {
    case 'a':
        return a.real() == b.real();
    case 'b':
        return same_text(a.wide(), b.wide());
    default:
        return true;
    }
}

bool same(const Interop::ByBool& a, const Interop::ByBool& b)
{
    if (a._d() != b._d())
        return false;
    return a._d() ? a.yes() == b.yes() : same_text(a.no(), b.no());
}

bool same(const Interop::ByUShort& a, const Interop::ByUShort& b)
{
    if (a._d() != b._d())
        return false;
    switch (a._d()) {
    case 7:
        return same(a.all(), b.all());
    case 8:
        return same(a.anything(), b.anything());
    default:
        return same_text(a.name(), b.name());
    }
}

bool same(const Interop::ByLongLong& a, const Interop::ByLongLong& b)
{
    if (a._d() != b._d())
        return false;
    if (a._d() == -5000000000LL)
        return a.big() == b.big();
    if (a._d() == 5000000000LL)
        return same(a.inner(), b.inner());
    return true;
}

bool same(const Interop::LongSeq& a, const Interop::LongSeq& b)
{
    return same_elements(a, b, same_value);
}

bool same(const Interop::ShortLongSeq& a, const Interop::ShortLongSeq& b)
{
    return a.maximum() == 4 && b.maximum() == 4 && same_elements(a, b, same_value);
}

bool same(const Interop::StringSeq& a, const Interop::StringSeq& b)
{
    return same_elements(a, b, [](const char* x, const char* y) { return same_text(x, y); });
}

bool same(const Interop::WStringSeq& a, const Interop::WStringSeq& b)
{
    return same_elements(a, b, [](const CORBA::WChar* x, const CORBA::WChar* y) { return same_text(x, y); });
}

bool same(const Interop::LongSeqSeq& a, const Interop::LongSeqSeq& b)
{
    return same_elements(a, b, same_value);
}

bool same(const Interop::PersonSeq& a, const Interop::PersonSeq& b)
{
    return same_elements(a, b, same_value);
}

bool same(const Interop::UnionSeq& a, const Interop::UnionSeq& b)
{
    return same_elements(a, b, same_value);
}

bool same(const Interop::Octets& a, const Interop::Octets& b)
{
    return a.length() == b.length() &&
           (a.length() == 0 || std::memcmp(a.get_buffer(), b.get_buffer(), a.length()) == 0);
}

bool same(const TriangleValue& a, const TriangleValue& b)
{
    for (std::size_t i = 0; i < a.size(); ++i)
        if (!same(a[i], b[i]))
            return false;
    return true;
}

bool same(const Interop::Triangles& a, const Interop::Triangles& b)
{
    return same_elements(a, b, [](const Interop::Triangle_slice* x, const Interop::Triangle_slice* y) {
        return same(from_slice(x), from_slice(y));
    });
}

bool same(const CORBA::Any& a, const CORBA::Any& b)
{
    const std::string what = describe(a);
    if (what == "unknown" || what.find('?') != std::string::npos || what != describe(b))
        return false;
    CORBA::TypeCode_var ta = a.type();
    CORBA::TypeCode_var tb = b.type();
    return ta->equivalent(tb);
}

// ---------------------------------------------------------------- slices

void to_slice(const MatrixValue& v, Interop::Matrix_slice* s)
{
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            s[i][j] = v[i][j];
}

MatrixValue from_slice(const Interop::Matrix_slice* s)
{
    MatrixValue v;
    for (std::size_t i = 0; i < 3; ++i)
        for (std::size_t j = 0; j < 4; ++j)
            v[i][j] = s[i][j];
    return v;
}

void to_slice(const NamesValue& v, Interop::Names_slice* s)
{
    for (std::size_t i = 0; i < 2; ++i)
        for (std::size_t j = 0; j < 3; ++j)
            s[i][j] = v[i][j].c_str();
}

NamesValue from_slice(const Interop::Names_slice* s)
{
    NamesValue v;
    for (std::size_t i = 0; i < 2; ++i)
        for (std::size_t j = 0; j < 3; ++j) {
            const char* text = s[i][j];
            v[i][j] = text ? text : "<null>";
        }
    return v;
}

void to_slice(const TriangleValue& v, Interop::Triangle_slice* s)
{
    for (std::size_t i = 0; i < 3; ++i)
        s[i] = v[i];
}

TriangleValue from_slice(const Interop::Triangle_slice* s)
{
    TriangleValue v;
    for (std::size_t i = 0; i < 3; ++i)
        v[i] = s[i];
    return v;
}

// ------------------------------------------------------------------ anys

namespace {

// How the samples of one kind go into an any and are found in one.
struct AnyKind {
    const char* name;
    std::size_t (*count)();
    void (*insert)(CORBA::Any&, std::size_t);
    // True when the any holds a value of the kind; `index` is then the
    // sample's index or npos.
    bool (*find)(const CORBA::Any&, std::size_t& index);
};

template <class K>
std::size_t count_of()
{
    return K::samples().size();
}

// Basic types and enumerations: inserted and extracted by value.
template <class K>
struct ByValue {
    static void insert(CORBA::Any& a, std::size_t i) { a <<= K::samples()[i]; }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        typename K::T v;
        if (!(a >>= v))
            return false;
        i = sample_index<K>(v);
        return true;
    }
};

// Structures, unions, sequences and anys: extracted as a pointer the any
// keeps.
template <class K>
struct ByPointer {
    static void insert(CORBA::Any& a, std::size_t i) { a <<= K::samples()[i]; }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        const typename K::T* v = nullptr;
        if (!(a >>= v))
            return false;
        i = sample_index<K>(*v);
        return true;
    }
};

struct BooleanOps {
    static void insert(CORBA::Any& a, std::size_t i) { a <<= CORBA::Any::from_boolean(KBoolean::samples()[i]); }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        CORBA::Boolean v;
        if (!(a >>= CORBA::Any::to_boolean(v)))
            return false;
        i = sample_index<KBoolean>(v);
        return true;
    }
};

struct CharOps {
    static void insert(CORBA::Any& a, std::size_t i) { a <<= CORBA::Any::from_char(KChar::samples()[i]); }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        CORBA::Char v;
        if (!(a >>= CORBA::Any::to_char(v)))
            return false;
        i = sample_index<KChar>(v);
        return true;
    }
};

struct WCharOps {
    static void insert(CORBA::Any& a, std::size_t i) { a <<= CORBA::Any::from_wchar(KWChar::samples()[i]); }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        CORBA::WChar v;
        if (!(a >>= CORBA::Any::to_wchar(v)))
            return false;
        i = sample_index<KWChar>(v);
        return true;
    }
};

struct OctetOps {
    static void insert(CORBA::Any& a, std::size_t i) { a <<= CORBA::Any::from_octet(KOctet::samples()[i]); }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        CORBA::Octet v;
        if (!(a >>= CORBA::Any::to_octet(v)))
            return false;
        i = sample_index<KOctet>(v);
        return true;
    }
};

// Strings; a bound of 0 is an unbounded string.
template <class K, CORBA::ULong bound>
struct StringOps {
    static void insert(CORBA::Any& a, std::size_t i)
    {
        const char* v = K::samples()[i].c_str();
        if (bound)
            a <<= CORBA::Any::from_string(v, bound);
        else
            a <<= v;
    }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        const char* v = nullptr;
        if (!(bound ? (a >>= CORBA::Any::to_string(v, bound)) : (a >>= v)))
            return false;
        i = sample_index<K>(v);
        return true;
    }
};

template <class K, CORBA::ULong bound>
struct WStringOps {
    static void insert(CORBA::Any& a, std::size_t i)
    {
        const CORBA::WChar* v = K::samples()[i].c_str();
        if (bound)
            a <<= CORBA::Any::from_wstring(v, bound);
        else
            a <<= v;
    }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        const CORBA::WChar* v = nullptr;
        if (!(bound ? (a >>= CORBA::Any::to_wstring(v, bound)) : (a >>= v)))
            return false;
        i = sample_index<K>(v);
        return true;
    }
};

template <class K, CORBA::UShort digits, CORBA::UShort scale>
struct FixedOps {
    static void insert(CORBA::Any& a, std::size_t i) { a <<= CORBA::Any::from_fixed(K::samples()[i], digits, scale); }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        CORBA::Fixed v;
        if (!(a >>= CORBA::Any::to_fixed(v, digits, scale)))
            return false;
        i = sample_index<K>(typename K::T(v));
        return true;
    }
};

template <class K, class Forany, class Slice, Slice* (*alloc)()>
struct ArrayOps {
    static void insert(CORBA::Any& a, std::size_t i)
    {
        Slice* s = alloc();
        to_slice(K::samples()[i], s);
        a <<= Forany(s, true); // the any takes the slice over
    }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        Forany v;
        if (!(a >>= v))
            return false;
        i = sample_index<K>(from_slice(v.in()));
        return true;
    }
};

// Type codes of several shapes: basic, recursive, with nested unions and
// sequences, of an interface.
const std::vector<CORBA::TypeCode_ptr>& type_code_samples()
{
    static const std::vector<CORBA::TypeCode_ptr> values = {
        CORBA::_tc_long,          CORBA::_tc_string,      Interop::_tc_Person, Interop::_tc_Tree,
        Interop::_tc_ByColor,     Interop::_tc_Matrix,    Interop::_tc_Money,  Interop::_tc_Probe,
        Interop::_tc_Overdrawn,
    };
    return values;
}

struct TypeCodeOps {
    static std::size_t count() { return type_code_samples().size(); }
    static void insert(CORBA::Any& a, std::size_t i) { a <<= type_code_samples()[i]; }
    static bool find(const CORBA::Any& a, std::size_t& i)
    {
        CORBA::TypeCode_ptr v;
        if (!(a >>= v))
            return false;
        i = npos;
        for (std::size_t k = 0; k < type_code_samples().size(); ++k)
            if (v->equal(type_code_samples()[k]))
                i = k;
        return true;
    }
};

#define INTEROP_ANY_KIND(kind, ...) {kind::name(), &count_of<kind>, &__VA_ARGS__::insert, &__VA_ARGS__::find}

const std::vector<AnyKind>& any_kinds()
{
    static const std::vector<AnyKind> kinds = {
        INTEROP_ANY_KIND(KShort, ByValue<KShort>),
        INTEROP_ANY_KIND(KUShort, ByValue<KUShort>),
        INTEROP_ANY_KIND(KLong, ByValue<KLong>),
        INTEROP_ANY_KIND(KULong, ByValue<KULong>),
        INTEROP_ANY_KIND(KLongLong, ByValue<KLongLong>),
        INTEROP_ANY_KIND(KULongLong, ByValue<KULongLong>),
        INTEROP_ANY_KIND(KFloat, ByValue<KFloat>),
        INTEROP_ANY_KIND(KDouble, ByValue<KDouble>),
        INTEROP_ANY_KIND(KBoolean, BooleanOps),
        INTEROP_ANY_KIND(KChar, CharOps),
        INTEROP_ANY_KIND(KWChar, WCharOps),
        INTEROP_ANY_KIND(KOctet, OctetOps),
        INTEROP_ANY_KIND(KString, StringOps<KString, 0>),
        INTEROP_ANY_KIND(KShortName, StringOps<KShortName, 8>),
        INTEROP_ANY_KIND(KWString, WStringOps<KWString, 0>),
        INTEROP_ANY_KIND(KShortWName, WStringOps<KShortWName, 12>),
        INTEROP_ANY_KIND(KColor, ByValue<KColor>),
        INTEROP_ANY_KIND(KMoney, FixedOps<KMoney, 9, 2>),
        INTEROP_ANY_KIND(KBigDecimal, FixedOps<KBigDecimal, 31, 6>),
        INTEROP_ANY_KIND(KPoint, ByPointer<KPoint>),
        INTEROP_ANY_KIND(KBasics, ByPointer<KBasics>),
        INTEROP_ANY_KIND(KPerson, ByPointer<KPerson>),
        INTEROP_ANY_KIND(KTree, ByPointer<KTree>),
        INTEROP_ANY_KIND(KByLong, ByPointer<KByLong>),
        INTEROP_ANY_KIND(KByColor, ByPointer<KByColor>),
        INTEROP_ANY_KIND(KByChar, ByPointer<KByChar>),
        INTEROP_ANY_KIND(KByUShort, ByPointer<KByUShort>),
        INTEROP_ANY_KIND(KLongSeq, ByPointer<KLongSeq>),
        INTEROP_ANY_KIND(KStringSeq, ByPointer<KStringSeq>),
        INTEROP_ANY_KIND(KPersonSeq, ByPointer<KPersonSeq>),
        INTEROP_ANY_KIND(KOctets, ByPointer<KOctets>),
        INTEROP_ANY_KIND(KMatrix, ArrayOps<KMatrix, Interop::Matrix_forany, Interop::Matrix_slice, &Interop::Matrix_alloc>),
        INTEROP_ANY_KIND(KNames, ArrayOps<KNames, Interop::Names_forany, Interop::Names_slice, &Interop::Names_alloc>),
        {"TypeCode", &TypeCodeOps::count, &TypeCodeOps::insert, &TypeCodeOps::find},
    };
    return kinds;
}

} // namespace

std::string describe(const CORBA::Any& value)
{
    CORBA::TypeCode_var type = value.type();
    if (type->kind() == CORBA::tk_null)
        return "null";
    const CORBA::Any* inner = nullptr;
    if (value >>= inner)
        return "any(" + describe(*inner) + ")";
    for (const AnyKind& kind : any_kinds()) {
        std::size_t index = npos;
        if (kind.find(value, index))
            return std::string(kind.name) + " " + (index == npos ? "?" : std::to_string(index));
    }
    return "unknown";
}

bool make_any(const std::string& kind, CORBA::Long index, CORBA::Any& value)
{
    for (const AnyKind& k : any_kinds())
        if (kind == k.name) {
            if (index < 0 || static_cast<std::size_t>(index) >= k.count())
                return false;
            k.insert(value, static_cast<std::size_t>(index));
            return true;
        }
    return false;
}

std::vector<std::pair<std::string, std::size_t>> any_kind_list()
{
    std::vector<std::pair<std::string, std::size_t>> list;
    for (const AnyKind& kind : any_kinds())
        list.emplace_back(kind.name, kind.count());
    return list;
}

const std::vector<CORBA::Any>& KAny::samples()
{
    // One sample of every kind an any can hold, an empty any and anys in
    // anys.
    static const std::vector<T> values = [] {
        std::vector<T> v;
        std::size_t n = 0;
        for (const AnyKind& kind : any_kinds()) {
            CORBA::Any a;
            kind.insert(a, n++ % kind.count());
            v.push_back(a);
        }
        v.emplace_back();
        CORBA::Any inner;
        make_any("Person", 2, inner);
        CORBA::Any outer;
        outer <<= inner;
        v.push_back(outer);
        CORBA::Any twice;
        twice <<= outer;
        v.push_back(twice);
        return v;
    }();
    return values;
}

// ---------------------------------------------------------------- reports

std::string show(const std::string& v)
{
    std::string text = "\"";
    for (unsigned char c : v.size() > 40 ? v.substr(0, 40) + "..." : v) {
        if (c >= 0x20 && c < 0x7f && c != '"') {
            text += static_cast<char>(c);
        } else {
            char hex[8];
            std::snprintf(hex, sizeof hex, "\\x%02x", c);
            text += hex;
        }
    }
    return text + "\"";
}

std::string show(const std::wstring& v)
{
    std::string text = "L\"";
    for (wchar_t c : v.size() > 40 ? v.substr(0, 40) + L"..." : v) {
        if (c >= 0x20 && c < 0x7f && c != '"') {
            text += static_cast<char>(c);
        } else {
            char hex[16];
            std::snprintf(hex, sizeof hex, "\\u%04lx", static_cast<unsigned long>(c));
            text += hex;
        }
    }
    return text + "\"";
}

} // namespace interop
