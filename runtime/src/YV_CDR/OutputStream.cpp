#include "../../include/zantic_sys/YV_CDR/OutputStream.h"

#include "../../include/zantic_sys/CORBA/SystemException.h"

#include <cstdlib>
#include <new>
#include <utility>

namespace YV_CDR {

OutputStream::OutputStream(bool little_endian, std::size_t initial_capacity) : m_little(little_endian)
{
    if (initial_capacity != 0)
        reserve_more(initial_capacity);
}

OutputStream::OutputStream(OutputStream&& other) noexcept
    : m_buf(std::exchange(other.m_buf, nullptr)),
      m_size(std::exchange(other.m_size, 0)),
      m_cap(std::exchange(other.m_cap, 0)),
      m_base(std::exchange(other.m_base, 0)),
      m_little(other.m_little),
      m_giop_minor(other.m_giop_minor)
{
}

OutputStream& OutputStream::operator=(OutputStream&& other) noexcept
{
    if (this != &other) {
        std::free(m_buf);
        m_buf = std::exchange(other.m_buf, nullptr);
        m_size = std::exchange(other.m_size, 0);
        m_cap = std::exchange(other.m_cap, 0);
        m_base = std::exchange(other.m_base, 0);
        m_little = other.m_little;
        m_giop_minor = other.m_giop_minor;
    }
    return *this;
}

OutputStream::~OutputStream() { std::free(m_buf); }

void OutputStream::reserve_more(std::size_t n)
{
    std::size_t cap = m_cap == 0 ? 256 : m_cap;
    while (cap - m_size < n) {
        if (cap > (static_cast<std::size_t>(-1) >> 1))
            throw CORBA::NO_MEMORY(0, CORBA::COMPLETED_NO);
        cap *= 2;
    }
    void* grown = std::realloc(m_buf, cap);
    if (grown == nullptr)
        throw CORBA::NO_MEMORY(0, CORBA::COMPLETED_NO);
    m_buf = static_cast<unsigned char*>(grown);
    m_cap = cap;
}

void OutputStream::write_boolean_array(const CORBA::Boolean* v, std::size_t n)
{
    unsigned char* p = grow(n);
    for (std::size_t i = 0; i < n; ++i)
        p[i] = v[i] ? 1 : 0;
}

void OutputStream::write_string(const char* s, CORBA::ULong bound)
{
    if (s == nullptr)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    write_string(s, std::strlen(s), bound);
}

void OutputStream::write_string(const char* s, std::size_t length, CORBA::ULong bound)
{
    if ((bound != 0 && length > bound) || length >= 0xffffffffu)
        throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
    write_ulong(static_cast<CORBA::ULong>(length + 1));
    unsigned char* p = grow(length + 1);
    std::memcpy(p, s, length);
    p[length] = 0;
}

OutputStream::Encapsulation OutputStream::begin_encapsulation()
{
    Encapsulation e{reserve_ulong(), m_base};
    m_base = m_size;
    write_boolean(m_little);
    return e;
}

void OutputStream::end_encapsulation(const Encapsulation& e)
{
    patch_ulong(e.length_at, static_cast<CORBA::ULong>(m_size - e.length_at - 4));
    m_base = e.outer_base;
}

} // namespace YV_CDR
