// The sample values of every type of Interop.idl, which the servers and the
// clients of both ORBs know alike, and the comparisons the checks need.
// Written to the standard C++ mapping only: the same source is compiled
// against each ORB's generated code (InteropOrb.h says which).
#ifndef INTEROP_VALUES_H
#define INTEROP_VALUES_H

#include "InteropOrb.h"

#include <array>
#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace interop {

// Array values live in standard containers and are copied into and out of
// the mapping's slices where a call needs them.
typedef std::array<std::array<CORBA::Long, 4>, 3> MatrixValue;
typedef std::array<std::array<std::string, 3>, 2> NamesValue;
typedef std::array<Interop::Point, 3> TriangleValue;

// One kind of value: the name the checks report, the C++ type samples are
// kept in, and the samples (at least two, all different).
#define INTEROP_KIND(kind, text, type)                        \
    struct kind {                                             \
        typedef type T;                                       \
        static const char* name() { return text; }           \
        static const std::vector<T>& samples();               \
    };
INTEROP_KIND(KShort, "short", CORBA::Short)
INTEROP_KIND(KUShort, "unsigned short", CORBA::UShort)
INTEROP_KIND(KLong, "long", CORBA::Long)
INTEROP_KIND(KULong, "unsigned long", CORBA::ULong)
INTEROP_KIND(KLongLong, "long long", CORBA::LongLong)
INTEROP_KIND(KULongLong, "unsigned long long", CORBA::ULongLong)
INTEROP_KIND(KFloat, "float", CORBA::Float)
INTEROP_KIND(KDouble, "double", CORBA::Double)
INTEROP_KIND(KLongDouble, "long double", CORBA::LongDouble)
INTEROP_KIND(KBoolean, "boolean", CORBA::Boolean)
INTEROP_KIND(KChar, "char", CORBA::Char)
INTEROP_KIND(KWChar, "wchar", CORBA::WChar)
INTEROP_KIND(KOctet, "octet", CORBA::Octet)
INTEROP_KIND(KString, "string", std::string)
INTEROP_KIND(KShortName, "ShortName", std::string)
INTEROP_KIND(KWString, "wstring", std::wstring)
INTEROP_KIND(KShortWName, "ShortWName", std::wstring)
INTEROP_KIND(KColor, "Color", Interop::Color)
INTEROP_KIND(KScore, "Score", Interop::Score)
INTEROP_KIND(KMoney, "Money", Interop::Money)
INTEROP_KIND(KBigDecimal, "BigDecimal", Interop::BigDecimal)
INTEROP_KIND(KPoint, "Point", Interop::Point)
INTEROP_KIND(KBasics, "Basics", Interop::Basics)
INTEROP_KIND(KPerson, "Person", Interop::Person)
INTEROP_KIND(KTree, "Tree", Interop::Tree)
INTEROP_KIND(KByLong, "ByLong", Interop::ByLong)
INTEROP_KIND(KByColor, "ByColor", Interop::ByColor)
INTEROP_KIND(KByChar, "ByChar", Interop::ByChar)
INTEROP_KIND(KByBool, "ByBool", Interop::ByBool)
INTEROP_KIND(KByUShort, "ByUShort", Interop::ByUShort)
INTEROP_KIND(KByLongLong, "ByLongLong", Interop::ByLongLong)
INTEROP_KIND(KLongSeq, "LongSeq", Interop::LongSeq)
INTEROP_KIND(KShortLongSeq, "ShortLongSeq", Interop::ShortLongSeq)
INTEROP_KIND(KStringSeq, "StringSeq", Interop::StringSeq)
INTEROP_KIND(KWStringSeq, "WStringSeq", Interop::WStringSeq)
INTEROP_KIND(KLongSeqSeq, "LongSeqSeq", Interop::LongSeqSeq)
INTEROP_KIND(KPersonSeq, "PersonSeq", Interop::PersonSeq)
INTEROP_KIND(KUnionSeq, "UnionSeq", Interop::UnionSeq)
INTEROP_KIND(KOctets, "Octets", Interop::Octets)
INTEROP_KIND(KMatrix, "Matrix", MatrixValue)
INTEROP_KIND(KNames, "Names", NamesValue)
INTEROP_KIND(KTriangle, "Triangle", TriangleValue)
INTEROP_KIND(KTriangles, "Triangles", Interop::Triangles)
INTEROP_KIND(KAny, "any", CORBA::Any)
#undef INTEROP_KIND

// Equality of values. Basic types, strings, enumerations, fixed and the
// array containers compare with ==; the mapping's structured types have no
// operator== and get one function each.
template <class T>
bool same(const T& a, const T& b)
{
    return a == b;
}
bool same_text(const char* a, const char* b);
bool same_text(const CORBA::WChar* a, const CORBA::WChar* b);
bool same(const Interop::Point& a, const Interop::Point& b);
bool same(const Interop::Basics& a, const Interop::Basics& b);
bool same(const Interop::Person& a, const Interop::Person& b);
bool same(const Interop::Tree& a, const Interop::Tree& b);
bool same(const Interop::ByLong& a, const Interop::ByLong& b);
bool same(const Interop::ByColor& a, const Interop::ByColor& b);
bool same(const Interop::ByChar& a, const Interop::ByChar& b);
bool same(const Interop::ByBool& a, const Interop::ByBool& b);
bool same(const Interop::ByUShort& a, const Interop::ByUShort& b);
bool same(const Interop::ByLongLong& a, const Interop::ByLongLong& b);
bool same(const Interop::LongSeq& a, const Interop::LongSeq& b);
bool same(const Interop::ShortLongSeq& a, const Interop::ShortLongSeq& b);
bool same(const Interop::StringSeq& a, const Interop::StringSeq& b);
bool same(const Interop::WStringSeq& a, const Interop::WStringSeq& b);
bool same(const Interop::LongSeqSeq& a, const Interop::LongSeqSeq& b);
bool same(const Interop::PersonSeq& a, const Interop::PersonSeq& b);
bool same(const Interop::UnionSeq& a, const Interop::UnionSeq& b);
bool same(const Interop::Octets& a, const Interop::Octets& b);
bool same(const TriangleValue& a, const TriangleValue& b);
bool same(const Interop::Triangles& a, const Interop::Triangles& b);
// Anys are equal when their type codes are equivalent and they hold the same
// sample (see describe).
bool same(const CORBA::Any& a, const CORBA::Any& b);

constexpr std::size_t npos = static_cast<std::size_t>(-1);

// The position of `value` among the samples of K, or npos.
template <class K>
std::size_t sample_index(const typename K::T& value)
{
    const std::vector<typename K::T>& s = K::samples();
    for (std::size_t i = 0; i < s.size(); ++i)
        if (same(value, s[i]))
            return i;
    return npos;
}

// What an any holds: "<kind> <sample index>" ("Person 2"), "<kind> ?" for a
// value of a known kind that is no sample, "null" for an empty any,
// "any(<what the inner any holds>)" for an any in an any, else "unknown".
std::string describe(const CORBA::Any& value);
// Puts sample `index` of the kind named `kind` into `value`; false when no
// such kind can travel in an any or the index is out of range.
bool make_any(const std::string& kind, CORBA::Long index, CORBA::Any& value);
// The kinds make_any knows, with their sample counts.
std::vector<std::pair<std::string, std::size_t>> any_kind_list();

// Arrays between the containers and the mapping's slices.
void to_slice(const MatrixValue& v, Interop::Matrix_slice* s);
MatrixValue from_slice(const Interop::Matrix_slice* s);
void to_slice(const NamesValue& v, Interop::Names_slice* s);
NamesValue from_slice(const Interop::Names_slice* s);
void to_slice(const TriangleValue& v, Interop::Triangle_slice* s);
TriangleValue from_slice(const Interop::Triangle_slice* s);

// Text for reports.
std::string show(const std::string& v);
std::string show(const std::wstring& v);
template <class T>
std::string show(const T& v)
{
    if constexpr (std::is_arithmetic<T>::value)
        return std::to_string(v);
    else
        return "<value>";
}

} // namespace interop

#endif
