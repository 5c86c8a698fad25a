// The operation dictionary: placement, chains, duplicates and sizing.
#include "IDL_OpDict.h"
#include "YV_hash_string.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

// Places a key by its first byte, so tests choose collisions by name; the
// high 32 bits are set to show that only the low 32 take part.
std::uint64_t first_byte_hash(const char* s)
{
    return 0xabcdef0000000000ULL | static_cast<unsigned char>(s[0]);
}

// The keys along slot i's chain, in chain order.
std::vector<std::string> chain(const IDL_OpDict& d, std::uint32_t i)
{
    std::vector<std::string> keys;
    for (const IDL_OpDict::HashEntry* e = &d.entries()[i]; e && e->used; e = e->next.get())
        keys.push_back(e->key.c_str());
    return keys;
}

TEST(OpDict, ChainsKeepInsertionOrderAndRefuseDuplicates)
{
    struct Step {
        const char* key;
        const char* value;
        bool added;
    };
    // With 4 slots and the first-byte hash: 'a' (97) -> 1, 'e' (101) -> 1,
    // 'b' (98) -> 2, 'c' (99) -> 3, 'd' (100) -> 0.
    const Step steps[] = {
        {"a1", "A1", true}, {"e1", "E1", true}, {"a2", "A2", true}, {"b1", "B1", true},
        {"a1", "other", false},  // held by the slot itself
        {"a2", "other", false},  // held at the end of the chain
        {"e1", "other", false},  // held in the middle of the chain
        {"A1", "upper", true},   // letter case makes another key ('A' = 65 -> slot 1)
        {"a", "short", true},    // a prefix of a held key is another key
    };
    IDL_OpDict d(first_byte_hash, 2);
    for (const Step& s : steps)
        EXPECT_EQ(s.added, d.Insert(s.key, s.value)) << s.key;

    EXPECT_EQ((std::vector<std::string>{"a1", "e1", "a2", "A1", "a"}), chain(d, 1));
    EXPECT_EQ((std::vector<std::string>{"b1"}), chain(d, 2));
    EXPECT_STREQ("A1", d.entries()[1].value.c_str());  // refused duplicates changed nothing
    EXPECT_STREQ("A2", d.entries()[1].next->next->value.c_str());
    EXPECT_STREQ("upper", d.entries()[1].next->next->next->value.c_str());
}

TEST(OpDict, UnusedSlotsStayEmpty)
{
    IDL_OpDict d(first_byte_hash, 3);
    for (const char* k : {"a", "aa", "aaa", "b", "bb", "i", "j"})  // slots 1, 2 ('i' = 105 -> 1, 'j' -> 2)
        d.Insert(k, "v");
    for (std::uint32_t i = 0; i < d.slot_count(); ++i) {
        const IDL_OpDict::HashEntry& e = d.entries()[i];
        if (i == 1 || i == 2) {
            EXPECT_TRUE(e.used);
            continue;
        }
        EXPECT_FALSE(e.used) << i;
        EXPECT_TRUE(e.key.empty()) << i;
        EXPECT_TRUE(e.value.empty()) << i;
        EXPECT_EQ(nullptr, e.next) << i;
    }
}

TEST(OpDict, OneSlotHoldsEveryKeyInOrder)
{
    IDL_OpDict d(YV_hash_string, 0);
    ASSERT_EQ(1u, d.slot_count());
    std::vector<std::string> keys;
    for (int i = 0; i < 2000; ++i) {
        keys.push_back("op" + std::to_string(i));
        ASSERT_TRUE(d.Insert(keys.back().c_str(), "f"));
    }
    EXPECT_FALSE(d.Insert("op1999", "g"));
    EXPECT_EQ(keys, chain(d, 0));
}

TEST(OpDict, PlacesKeysWithTheLow32BitsOfTheStringHash)
{
    IDL_OpDict d(YV_hash_string, 5);
    const char* keys[] = {"_interface", "_is_a", "_non_existent", "deposit", "withdraw", "_get_balance", "ping"};
    for (const char* k : keys)
        d.Insert(k, "f");
    for (const char* k : keys) {
        const std::uint32_t slot = static_cast<std::uint32_t>(YV_hash_string(k)) & 31u;
        EXPECT_EQ(slot, d.slot_of(k));
        EXPECT_EQ(slot, YV_hash_slot(k, 32));  // the runtime's rule
        bool found = false;
        for (const std::string& held : chain(d, slot))
            found = found || held == k;
        EXPECT_TRUE(found) << k;
    }
}

TEST(OpDict, AutomaticSizeIsTheSmallestPowerOfTwoAboveTheCounter)
{
    const std::pair<unsigned long, unsigned long> cases[] = {
        {0, 0}, {1, 1}, {2, 2}, {3, 2}, {4, 3}, {7, 3}, {8, 4}, {15, 4}, {16, 5}, {1000, 10},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(c.second, IDL_OpDict::auto_bits(c.first)) << c.first;
        if (c.first >= 3) {
            EXPECT_GT(1ul << c.second, c.first);
        }
    }
}

TEST(OpDict, RefusesBitCountsBeyondTheSlotCountRange)
{
    EXPECT_THROW(IDL_OpDict(YV_hash_string, IDL_OpDict::max_bits + 1), std::length_error);
}

} // namespace
