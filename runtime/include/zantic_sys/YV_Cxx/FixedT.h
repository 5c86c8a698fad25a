// The C++ type of IDL fixed<D,S>: a CORBA::Fixed whose type carries the
// digits and the scale. Every value it takes is fitted to them: digits
// after the S-th behind the point are cut off (truncated towards zero), and
// a value whose integral part needs more than D - S digits raises
// DATA_CONVERSION. Arithmetic is CORBA::Fixed's (its results are plain
// Fixed values, fitted again when assigned to a FixedT).
//
// The value is a CORBA::Fixed and nothing more, so a FixedT may be handled
// through a pointer to its base.
#ifndef YV_RT_YV_CXX_FIXEDT_H
#define YV_RT_YV_CXX_FIXEDT_H

#include "../CORBA/Fixed.h"
#include "../CORBA/SystemException.h"
#include "Marshal.h"

#include <type_traits>

namespace YV_Cxx {

template <CORBA::UShort D, CORBA::Short S>
class FixedT : public CORBA::Fixed {
    static_assert(D <= CORBA::Fixed::max_digits && S >= 0 && S <= D, "fixed<D,S> needs D <= 31 and 0 <= S <= D");

public:
    static constexpr CORBA::UShort digits = D;
    static constexpr CORBA::Short scale = S;

    FixedT() = default;
    FixedT(const CORBA::Fixed& v) : CORBA::Fixed(fitted(v)) {}
    template <class I, std::enable_if_t<std::is_integral<I>::value, int> = 0>
    FixedT(I v) : FixedT(CORBA::Fixed(v))
    {
    }
    FixedT(CORBA::Double v) : FixedT(CORBA::Fixed(v)) {}
    FixedT(CORBA::LongDouble v) : FixedT(CORBA::Fixed(v)) {}
    FixedT(const char* text) : FixedT(CORBA::Fixed(text)) {}

    FixedT& operator=(const CORBA::Fixed& v)
    {
        CORBA::Fixed::operator=(fitted(v));
        return *this;
    }
    template <class V, std::enable_if_t<std::is_arithmetic<V>::value, int> = 0>
    FixedT& operator=(V v)
    {
        return *this = CORBA::Fixed(v);
    }
    FixedT& operator=(const char* text) { return *this = CORBA::Fixed(text); }
    FixedT& operator+=(const CORBA::Fixed& v) { return *this = *this + v; }
    FixedT& operator-=(const CORBA::Fixed& v) { return *this = *this - v; }
    FixedT& operator*=(const CORBA::Fixed& v) { return *this = *this * v; }
    FixedT& operator/=(const CORBA::Fixed& v) { return *this = *this / v; }
    FixedT& operator++() { return *this += CORBA::Fixed(1); }
    FixedT operator++(int)
    {
        FixedT old = *this;
        ++*this;
        return old;
    }
    FixedT& operator--() { return *this -= CORBA::Fixed(1); }
    FixedT operator--(int)
    {
        FixedT old = *this;
        --*this;
        return old;
    }

    // `v` cut to S digits after the point (DATA_CONVERSION when its
    // integral part needs more than D - S digits).
    static CORBA::Fixed fitted(const CORBA::Fixed& v)
    {
        CORBA::Fixed f = v.truncate(static_cast<CORBA::UShort>(S));
        if (f.fixed_digits() - f.fixed_scale() > D - S)
            throw CORBA::DATA_CONVERSION(0, CORBA::COMPLETED_NO);
        return f;
    }
};

// Packed decimal of D digits (octets: D / 2 + 1).
template <CORBA::UShort D, CORBA::Short S>
struct Marshal<FixedT<D, S>> {
    static constexpr std::size_t min_size = D / 2 + 1;
    static void write(YV_CDR::OutputStream& out, const FixedT<D, S>& v) { out.write_fixed(v, D, S); }
    static void read(YV_CDR::InputStream& in, FixedT<D, S>& v) { v = in.read_fixed(D, S); }
};

} // namespace YV_Cxx

#endif
