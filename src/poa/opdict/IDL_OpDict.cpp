#include "IDL_OpDict.h"

#include <cstring>
#include <stdexcept>

IDL_OpDict::HashEntry::HashEntry(const char* k, const char* v, std::unique_ptr<HashEntry> n)
    : key(k), value(v), next(std::move(n)), used(true)
{
}

IDL_OpDict::IDL_OpDict(HashFunction h, unsigned long bits) : size(0), hash(h)
{
    if (bits > max_bits)
        throw std::length_error("IDL_OpDict: too many bits for a dispatch table");
    size = std::uint32_t(1) << bits;
    table = std::make_unique<HashEntry[]>(size);
}

// Chains are released iteratively: a table sized down to one slot can hold
// every operation of a large inheritance graph in one chain.
IDL_OpDict::~IDL_OpDict()
{
    for (std::uint32_t i = 0; i < size; ++i) {
        std::unique_ptr<HashEntry> rest = std::move(table[i].next);
        while (rest)
            rest = std::move(rest->next);
    }
}

std::uint32_t IDL_OpDict::slot_of(const char* key) const
{
    return static_cast<std::uint32_t>(hash(key) & 0xffffffffULL) & (size - 1U);
}

bool IDL_OpDict::Insert(const char* key, const char* value)
{
    HashEntry* e = &table[slot_of(key)];
    if (!e->used) {
        e->key = key;
        e->value = value;
        e->used = true;
        return true;
    }
    for (;;) {
        if (std::strcmp(e->key.c_str(), key) == 0)
            return false;
        if (!e->next)
            break;
        e = e->next.get();
    }
    e->next = std::make_unique<HashEntry>(key, value, nullptr);
    return true;
}

unsigned long IDL_OpDict::auto_bits(unsigned long counter)
{
    unsigned long bits = 0;
    while (counter != 0) {
        ++bits;
        counter >>= 1;
    }
    return bits;
}
