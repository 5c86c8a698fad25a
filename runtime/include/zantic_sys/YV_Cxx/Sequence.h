// IDL sequences: UnboundedSequence<T> and BoundedSequence<T, N>. Elements
// are values of their mapped C++ type; a sequence of strings holds
// CORBA::String_var elements and a sequence of references ObjRef_var
// elements, so that assigning an element frees the old one.
//
// Elements live in a buffer that the sequence always owns: the constructor
// that takes a buffer copies it (and frees it when told to release it).
// Elements of array type (a sequence of an IDL array typedef) cannot be
// assigned as a whole, so every copy, move and reset of an element goes
// through the helpers below, which work element by element on arrays.
#ifndef YV_RT_YV_CXX_SEQUENCE_H
#define YV_RT_YV_CXX_SEQUENCE_H

#include "../CORBA/SystemException.h"
#include "../CORBA/Types.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <type_traits>
#include <utility>

namespace YV_Cxx {

namespace seq_element {

template <class T>
void copy_element(T& to, const T& from) { to = from; }
template <class T, std::size_t N>
void copy_element(T (&to)[N], const T (&from)[N])
{
    for (std::size_t i = 0; i < N; ++i)
        copy_element(to[i], from[i]);
}

// Copies n elements: numbers, octets and plain structs as one block.
template <class T>
void copy_elements(T* to, const T* from, std::size_t n)
{
    if constexpr (std::is_trivially_copyable<T>::value && !std::is_array<T>::value)
        std::copy_n(from, n, to);
    else
        for (std::size_t i = 0; i < n; ++i)
            copy_element(to[i], from[i]);
}

template <class T>
void move_element(T& to, T& from) { to = std::move(from); }
template <class T, std::size_t N>
void move_element(T (&to)[N], T (&from)[N])
{
    for (std::size_t i = 0; i < N; ++i)
        move_element(to[i], from[i]);
}

// Gives an element the value of a new default-constructed one.
template <class T>
void reset_element(T& element) { element = T(); }
template <class T, std::size_t N>
void reset_element(T (&element)[N])
{
    for (std::size_t i = 0; i < N; ++i)
        reset_element(element[i]);
}

} // namespace seq_element

// Bound 0 stands for an unbounded sequence.
template <class T, CORBA::ULong Bound>
class Sequence {
public:
    typedef T value_type;

    // No buffer until the first element (or get_buffer) needs one.
    Sequence() : m_max(Bound) {}
    // An unbounded sequence with room for `max` elements.
    explicit Sequence(CORBA::ULong max) : m_max(Bound == 0 ? max : Bound) { reserve(m_max); }
    // `length` elements copied from `data`; with `release` the sequence
    // frees `data` (allocated by allocbuf) afterwards.
    Sequence(CORBA::ULong max, CORBA::ULong length, T* data, CORBA::Boolean release = false)
        : m_max(Bound == 0 ? max : Bound)
    {
        check_bound(length);
        reserve(std::max(m_max, length));
        seq_element::copy_elements(m_buf.get(), data, length);
        m_len = length;
        if (release)
            freebuf(data);
    }
    Sequence(const Sequence& other) : m_max(other.m_max)
    {
        reserve(std::max(other.m_max, other.m_len));
        seq_element::copy_elements(m_buf.get(), other.m_buf.get(), other.m_len);
        m_len = other.m_len;
    }
    Sequence(Sequence&& other) noexcept
        : m_max(other.m_max), m_len(other.m_len), m_cap(other.m_cap), m_buf(std::move(other.m_buf))
    {
        other.m_len = 0;
        other.m_cap = 0;
    }
    Sequence& operator=(const Sequence& other)
    {
        if (this != &other) {
            Sequence copy(other);
            *this = std::move(copy);
        }
        return *this;
    }
    Sequence& operator=(Sequence&& other) noexcept
    {
        if (this != &other) {
            m_max = other.m_max;
            m_len = other.m_len;
            m_cap = other.m_cap;
            m_buf = std::move(other.m_buf);
            other.m_len = 0;
            other.m_cap = 0;
        }
        return *this;
    }
    ~Sequence() = default;

    CORBA::ULong maximum() const { return m_max; }
    CORBA::ULong length() const { return m_len; }
    // Grows (new elements value-initialized) or shrinks the sequence;
    // a bounded sequence cannot grow past its bound (BAD_PARAM).
    void length(CORBA::ULong n)
    {
        check_bound(n);
        if (n > m_cap)
            reserve(std::max(n, 2 * m_cap));
        for (CORBA::ULong i = n; i < m_len; ++i)
            seq_element::reset_element(m_buf[i]);
        m_len = n;
        if (Bound == 0 && n > m_max)
            m_max = n;
    }

    T& operator[](CORBA::ULong i) { return m_buf[i]; }
    const T& operator[](CORBA::ULong i) const { return m_buf[i]; }

    CORBA::Boolean release() const { return true; }
    // The buffer, made (of maximum() elements, at least one) if there is
    // none yet; the const form answers null then.
    T* get_buffer()
    {
        if (!m_buf)
            reserve(std::max<CORBA::ULong>(m_max, 1));
        return m_buf.get();
    }
    const T* get_buffer() const { return m_buf.get(); }

    static T* allocbuf(CORBA::ULong n) { return new T[n]; }
    static void freebuf(T* buffer) { delete[] buffer; }

    // The buffer of a sequence of `n` elements that the caller (a decoder)
    // overwrites at once: numbers whose buffer must grow get it without
    // being set to zero first.
    T* yv_length_for_overwrite(CORBA::ULong n)
    {
        if constexpr (plain_numbers) {
            check_bound(n);
            if (n > m_cap) {
                m_buf.reset(new T[n]);
                m_cap = n;
            } else if (n < m_len) {
                std::fill(m_buf.get() + n, m_buf.get() + m_len, T());
            }
            m_len = n;
            if (Bound == 0 && n > m_max)
                m_max = n;
            return m_buf.get();
        } else {
            length(n);
            return n == 0 ? m_buf.get() : get_buffer();
        }
    }

private:
    static constexpr bool plain_numbers = std::is_arithmetic<T>::value && !std::is_same<T, bool>::value;

    static void check_bound(CORBA::ULong n)
    {
        if (Bound != 0 && n > Bound)
            throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    }
    // Makes room for `cap` elements, keeping the present ones; the new ones
    // are value-initialized, so that a grown sequence of numbers reads zeros
    // (numbers: only those beyond the present ones are set).
    void reserve(CORBA::ULong cap)
    {
        if (cap <= m_cap)
            return;
        if constexpr (plain_numbers) {
            std::unique_ptr<T[]> fresh(new T[cap]);
            seq_element::copy_elements(fresh.get(), m_buf.get(), m_len);
            std::fill(fresh.get() + m_len, fresh.get() + cap, T());
            m_buf = std::move(fresh);
            m_cap = cap;
            return;
        }
        std::unique_ptr<T[]> fresh(new T[cap]());
        if constexpr (std::is_trivially_copyable<T>::value && !std::is_array<T>::value)
            seq_element::copy_elements(fresh.get(), m_buf.get(), m_len);
        else
            for (CORBA::ULong i = 0; i < m_len; ++i)
                seq_element::move_element(fresh[i], m_buf[i]);
        m_buf = std::move(fresh);
        m_cap = cap;
    }

    CORBA::ULong m_max = 0;
    CORBA::ULong m_len = 0;
    CORBA::ULong m_cap = 0;
    std::unique_ptr<T[]> m_buf;
};

template <class T>
using UnboundedSequence = Sequence<T, 0>;
template <class T, CORBA::ULong N>
using BoundedSequence = Sequence<T, N>;

} // namespace YV_Cxx

#endif
