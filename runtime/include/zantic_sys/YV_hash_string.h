// The string hash that places operation names in dispatch tables.
//
// 64-bit FNV-1a over the bytes of a NUL-terminated string: start with the
// offset basis 0xcbf29ce484222325, and for each byte XOR it into the hash and
// multiply by the prime 0x100000001b3 (modulo 2^64). Bytes are taken as
// unsigned, so the result is the same on every platform.
//
// The generator places a key in slot (hash & 0xffffffff) & (slots - 1), and
// the runtime's table lookup does the same. This is the one definition:
// the compiler's foundation library takes it from here (its
// YV_hash_string.h includes this file), so that the installed runtime
// headers need nothing of the compiler. It depends on nothing but
// <cstdint>.
#ifndef YV_HASH_STRING_H
#define YV_HASH_STRING_H

#include <cstdint>

inline std::uint64_t YV_hash_string(const char* s)
{
    std::uint64_t h = 0xcbf29ce484222325ULL;
    for (const unsigned char* p = reinterpret_cast<const unsigned char*>(s); *p; ++p) {
        h ^= *p;
        h *= 0x100000001b3ULL;
    }
    return h;
}

// The slot of a key in a table of `slots` slots (a power of two).
inline std::uint32_t YV_hash_slot(const char* s, std::uint32_t slots)
{
    return static_cast<std::uint32_t>(YV_hash_string(s) & 0xffffffffULL) & (slots - 1U);
}

#endif
