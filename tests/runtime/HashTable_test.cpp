// The runtime's search of static dispatch tables against tables laid out
// the way the generator lays them out: slot from YV_hash_slot, later names
// chained behind earlier ones.
#include <zantic_sys/yvstatichash.h>

#include <zantic_sys/YV_hash_string.h>

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <vector>

namespace {

// Distinct dispatch functions, so that a lookup's answer tells which entry
// it found.
template <int N>
void dispatcher(PortableServer::ServantBase*, CORBA::YV_ServerRequest_ptr, CORBA::CompletionStatus& status)
{
    status = static_cast<CORBA::CompletionStatus>(N % 3);
}

const PortableServer::ServantBase::_YV_DispatcherPtr dispatchers[] = {
    &dispatcher<0>, &dispatcher<1>, &dispatcher<2>, &dispatcher<3>, &dispatcher<4>,
    &dispatcher<5>, &dispatcher<6>, &dispatcher<7>, &dispatcher<8>, &dispatcher<9>};

// A table of `slots` slots holding `names` in insertion order, built with
// the foundation's placement rule.
struct Table {
    Table(const std::vector<std::string>& names, std::uint32_t slots) : raw(slots, nullptr)
    {
        for (std::size_t i = 0; i < names.size(); ++i) {
            entries.push_back({names[i].c_str(), dispatchers[i % 10], nullptr});
            YV_Cxx_HashEntry** slot = &raw[YV_hash_slot(names[i].c_str(), slots)];
            while (*slot != nullptr)
                slot = const_cast<YV_Cxx_HashEntry**>(&(*slot)->next);
            *slot = &entries.back();
        }
    }
    std::deque<YV_Cxx_HashEntry> entries;
    std::vector<YV_Cxx_HashEntry*> raw;
};

std::vector<std::string> operation_names(std::size_t n)
{
    std::vector<std::string> names = {"_interface", "_is_a", "_non_existent"};
    for (std::size_t i = 0; names.size() < n; ++i) {
        names.push_back("op" + std::to_string(i));
        names.push_back("_get_attr" + std::to_string(i));
        names.push_back("_set_attr" + std::to_string(i));
    }
    names.resize(n);
    return names;
}

TEST(StaticDispatchHashTable, FindsEveryNameWhereTheGeneratorPlacedIt)
{
    struct Case {
        std::size_t names;
        std::uint32_t slots;
    };
    const Case cases[] = {{3, 4}, {4, 8}, {13, 16}, {60, 64}, {200, 8}, {40, 1}, {1, 1}};
    for (const Case& c : cases) {
        const std::vector<std::string> names = operation_names(c.names);
        Table table(names, c.slots);
        bool chained = false;
        for (std::size_t i = 0; i < names.size(); ++i) {
            SCOPED_TRACE(names[i] + " in " + std::to_string(c.slots) + " slots");
            EXPECT_EQ(YV_Cxx_StaticDispatchHashTable::slot_of(names[i].c_str(), c.slots),
                      YV_hash_slot(names[i].c_str(), c.slots));
            EXPECT_EQ(YV_Cxx_StaticDispatchHashTable::lookup(names[i].c_str(), table.raw.data(), c.slots),
                      dispatchers[i % 10]);
        }
        for (YV_Cxx_HashEntry* head : table.raw)
            chained = chained || (head != nullptr && head->next != nullptr);
        EXPECT_TRUE(chained || c.names <= 4) << "the case should exercise chains";
    }
}

TEST(StaticDispatchHashTable, UnknownNamesAndDegenerateTables)
{
    const std::vector<std::string> names = operation_names(13);
    Table table(names, 16);
    for (const char* unknown : {"", "op", "OP0", "_is_a ", "_get_attr99", "_is_"})
        EXPECT_EQ(YV_Cxx_StaticDispatchHashTable::lookup(unknown, table.raw.data(), 16), nullptr) << unknown;
    EXPECT_EQ(YV_Cxx_StaticDispatchHashTable::lookup(nullptr, table.raw.data(), 16), nullptr);
    EXPECT_EQ(YV_Cxx_StaticDispatchHashTable::lookup("op0", nullptr, 16), nullptr);

    YV_Cxx_HashEntry* empty[4] = {nullptr, nullptr, nullptr, nullptr};
    EXPECT_EQ(YV_Cxx_StaticDispatchHashTable::lookup("_is_a", empty, 4), nullptr);
}

TEST(StaticDispatchHashTable, FirstOfTwoEqualNamesWins)
{
    // A chain holding a name twice (the generator drops the second, but the
    // search must still stop at the first).
    YV_Cxx_HashEntry second = {"op", &dispatcher<2>, nullptr};
    YV_Cxx_HashEntry first = {"op", &dispatcher<1>, &second};
    YV_Cxx_HashEntry* raw[1] = {&first};
    EXPECT_EQ(YV_Cxx_StaticDispatchHashTable::lookup("op", raw, 1), &dispatcher<1>);
}

} // namespace
