// UTF-16 code units of the wide characters on the wire (CORBA::WChar holds
// one Unicode scalar value).
#ifndef YV_RT_SRC_YV_CDR_UTF16_H
#define YV_RT_SRC_YV_CDR_UTF16_H

#include <cstdint>

namespace YV_CDR {
namespace utf16 {

constexpr std::uint32_t byte_order_mark = 0xfeff;
constexpr std::uint32_t swapped_byte_order_mark = 0xfffe;

inline bool is_surrogate(std::uint32_t u) { return u >= 0xd800 && u <= 0xdfff; }
inline bool is_high_surrogate(std::uint32_t u) { return u >= 0xd800 && u <= 0xdbff; }
inline bool is_low_surrogate(std::uint32_t u) { return u >= 0xdc00 && u <= 0xdfff; }
inline bool is_scalar_value(std::uint32_t c) { return c <= 0x10ffff && !is_surrogate(c); }

// Code units of `c` (a scalar value): 1 or 2.
inline unsigned units_of(std::uint32_t c) { return c > 0xffff ? 2 : 1; }

inline std::uint16_t high_surrogate(std::uint32_t c) { return static_cast<std::uint16_t>(0xd800 + ((c - 0x10000) >> 10)); }
inline std::uint16_t low_surrogate(std::uint32_t c) { return static_cast<std::uint16_t>(0xdc00 + ((c - 0x10000) & 0x3ff)); }
inline std::uint32_t join(std::uint32_t high, std::uint32_t low) { return 0x10000 + ((high - 0xd800) << 10) + (low - 0xdc00); }

} // namespace utf16
} // namespace YV_CDR

#endif
