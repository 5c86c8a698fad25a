// Byte order of CDR data and the swapping of primitive values.
#ifndef YV_RT_YV_CDR_BYTEORDER_H
#define YV_RT_YV_CDR_BYTEORDER_H

#include <cstdint>
#include <cstring>

namespace YV_CDR {

// The order this host writes in: CDR data in it needs no swapping.
constexpr bool native_little_endian = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;

inline std::uint16_t swap_bytes(std::uint16_t v) { return __builtin_bswap16(v); }
inline std::uint32_t swap_bytes(std::uint32_t v) { return __builtin_bswap32(v); }
inline std::uint64_t swap_bytes(std::uint64_t v) { return __builtin_bswap64(v); }

// Stores and loads an unsigned integer of N bytes at `p` (no alignment
// needed), swapped when `swap` is set.
template <class U>
inline void store(unsigned char* p, U v, bool swap)
{
    if (swap)
        v = swap_bytes(v);
    std::memcpy(p, &v, sizeof v);
}
template <class U>
inline U load(const unsigned char* p, bool swap)
{
    U v;
    std::memcpy(&v, p, sizeof v);
    return swap ? swap_bytes(v) : v;
}

} // namespace YV_CDR

#endif
