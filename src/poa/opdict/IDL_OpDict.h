// The operation dictionary of one skeleton's dispatch table: operation names
// as they arrive in a request (keys) mapped to the dispatch functions that
// serve them (values).
//
// Its layout is the layout of the table written into the generated code: a
// fixed array of 2^bits slots, each heading a chain of entries. A key lives
// in slot (low 32 bits of hash(key)) & (size - 1), the rule the runtime's
// table lookup follows, so the generated table can be searched with it. The
// generator only fills the dictionary and prints it slot by slot; nothing is
// ever looked up, removed or rehashed.
#ifndef IDL_OPDICT_H
#define IDL_OPDICT_H

#include "YV_String.h"

#include <cstdint>
#include <memory>

class IDL_OpDict {
public:
    // A slot, or an entry chained behind one. Each entry owns the rest of
    // its chain.
    struct HashEntry {
        // An unused slot: empty strings, no chain.
        HashEntry() = default;
        // A used entry heading `next` (which may be null).
        HashEntry(const char* key, const char* value, std::unique_ptr<HashEntry> next);

        YV_String key;
        YV_String value;
        std::unique_ptr<HashEntry> next;
        bool used = false;
    };

    using HashFunction = std::uint64_t (*)(const char*);

    // The largest table built: 2^20 slots. Beyond 30 bits a 32-bit signed
    // slot count cannot number the slots at all, and well before that the
    // table (every slot is printed) would take gigabytes of memory and text;
    // a million slots is far more than any interface can use. Callers choose
    // another size before constructing.
    static constexpr unsigned long max_bits = 20;

    // A table of 2^bits unused slots placing keys with `hash`. Throws
    // std::length_error for a bit count above max_bits.
    IDL_OpDict(HashFunction hash, unsigned long bits);
    virtual ~IDL_OpDict();
    IDL_OpDict(const IDL_OpDict&) = delete;
    IDL_OpDict& operator=(const IDL_OpDict&) = delete;

    // Adds the pair at the end of its slot's chain and answers true; answers
    // false, changing nothing, when the key (compared byte-wise) is already
    // held anywhere in the dictionary.
    bool Insert(const char* key, const char* value);

    // The slot array: slot_count() elements, element i being slot i.
    const HashEntry* entries() const { return table.get(); }
    std::uint32_t slot_count() const { return size; }

    // The slot a key falls on.
    std::uint32_t slot_of(const char* key) const;

    // The bit count of an automatically sized table for `counter` keys: the
    // number of significant bits of the counter, so that the table has the
    // smallest power of two of slots greater than the counter.
    static unsigned long auto_bits(unsigned long counter);

private:
    std::uint32_t size;
    std::unique_ptr<HashEntry[]> table;
    HashFunction hash;
};

#endif
