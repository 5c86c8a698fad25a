// The lookup function's static table: its keys, its layout and its size,
// checked by searching it the way the runtime does.
#include "ImplGolden.h"
#include "TableReader.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

const char* const bank = R"(
module Bank {
    interface Base { void ping(); };
    interface Account : Base {
        void deposit(in long amount);
        void withdraw(in long amount);
        readonly attribute long balance;
    };
};
)";

// A bank account's table of eight slots.
using impltest::ImplGolden;
INSTANTIATE_TEST_SUITE_P(Table, ImplGolden, testing::Values(impltest::ImplScenario{"table_bank_p3", bank, "-p3"}),
                         impltest::scenario_name);

std::set<std::string> keys_of(const tabletest::Table& t)
{
    std::vector<std::string> problems;
    std::vector<std::string> keys = tabletest::searchable_keys(t, problems);
    EXPECT_EQ(std::vector<std::string>(), problems);
    std::set<std::string> unique(keys.begin(), keys.end());
    EXPECT_EQ(keys.size(), unique.size()) << t.skeleton;
    return unique;
}

TEST(Table, SlotArrayLayoutFollowsTheSlotCount)
{
    struct Case {
        const char* options;
        std::vector<int> line_lengths;
    };
    const Case cases[] = {
        {"-p0", {1}},
        {"-p2", {4}},
        {"-p3", {6, 2}},
        {"-p4", {6, 6, 4}},
        {"-p5", {6, 6, 6, 6, 6, 2}},
        {nullptr, {6, 2}},  // 3 standard keys and 4 of Account: 8 slots
    };
    for (const Case& c : cases) {
        poatest::PoaRun run = poatest::run_poa(bank, c.options);
        ASSERT_TRUE(run.cxx_written) << run.err;
        const tabletest::Table t = tabletest::read_tables(run.cxx).at("POA_Bank::Account");
        const int slots = static_cast<int>(t.slots.size());
        SCOPED_TRACE(c.options ? c.options : "automatic");
        EXPECT_EQ(c.line_lengths, t.slot_line_lengths);
        EXPECT_TRUE(t.full_lines_end_in_comma);
        EXPECT_EQ(slots, t.lookup_count);
        EXPECT_EQ((std::set<std::string>{"_interface", "_is_a", "_non_existent", "deposit", "withdraw", "_get_balance", "ping"}),
                  keys_of(t));
    }
}

// One slot: every key in one chain, written from its end back to the slot.
TEST(Table, OneSlotChainIsWrittenFromItsEnd)
{
    poatest::PoaRun run = poatest::run_poa(bank, "-p0");
    ASSERT_TRUE(run.cxx_written) << run.err;
    const tabletest::Table t = tabletest::read_tables(run.cxx).at("POA_Bank::Account");
    std::vector<std::string> keys_written;
    std::vector<int> depths;
    for (const tabletest::Entry& e : t.entries) {
        keys_written.push_back(e.key);
        depths.push_back(e.depth);
    }
    // Insertion order: the standard entries, Account's own, then Base's.
    EXPECT_EQ((std::vector<std::string>{"ping", "_get_balance", "withdraw", "deposit", "_non_existent", "_is_a", "_interface"}),
              keys_written);
    EXPECT_EQ((std::vector<int>{6, 5, 4, 3, 2, 1, 0}), depths);
    EXPECT_EQ("0", t.entries.front().next);
    EXPECT_EQ("&_entry_0_1", t.entries.back().next);
}

std::string operations(int n)
{
    return "interface Ops {\n" + yvtest::numbered("    void op@();\n", 0, n) + "};\n";
}

TEST(Table, AutomaticSizeIsAboveTheKeyCount)
{
    const std::pair<int, int> cases[] = {{0, 4}, {1, 8}, {4, 8}, {5, 16}, {13, 32}};
    for (const auto& c : cases) {
        poatest::PoaRun run = poatest::run_poa(operations(c.first), nullptr);
        ASSERT_TRUE(run.cxx_written) << run.err;
        const tabletest::Table t = tabletest::read_tables(run.cxx).at("POA_Ops");
        EXPECT_EQ(c.second, static_cast<int>(t.slots.size())) << c.first << " operations";
        EXPECT_EQ(static_cast<std::size_t>(c.first + 3), keys_of(t).size());
    }
}

TEST(Table, UnbuildableSizeIsReportedAndTheAutomaticSizeUsed)
{
    // A number beyond the range of int stands for the nearest end of it.
    const std::pair<const char*, const char*> cases[] = {
        {"-p21", "21"}, {"-p31", "31"}, {"-p4000", "4000"}, {"-p999999999999", "2147483647"},
    };
    for (const auto& [options, n] : cases) {
        poatest::PoaRun run = poatest::run_poa(operations(2), options);
        ASSERT_TRUE(run.cxx_written) << run.err;
        EXPECT_EQ(run.err, "test.idl:1:11: error: POA Error. Dispatch table size 2^" + std::string(n) +
                               " cannot be built; using the automatic size.\n");
        EXPECT_EQ(8u, tabletest::read_tables(run.cxx).at("POA_Ops").slots.size());
    }
    // Any negative -p means the automatic size, silently: -p-1 is the value
    // of an absent -p; a number below the range of int stands for its end.
    for (const char* negative : {"-p-1", "-p-4", "-p-99999999999999999999"}) {
        poatest::PoaRun run = poatest::run_poa(operations(2), negative);
        EXPECT_EQ("", run.err) << negative;
        EXPECT_EQ(8u, tabletest::read_tables(run.cxx).at("POA_Ops").slots.size()) << negative;
    }
    poatest::PoaRun largest = poatest::run_poa(operations(2), "-p20");
    EXPECT_EQ("", largest.err);
}

// Keys are what arrives in a request; values name the dispatch function of
// the interface that declares the operation.
TEST(Table, KeysAndFunctionsAcrossInheritance)
{
    poatest::PoaRun run = poatest::run_poa(R"(
module K {
    interface Empty {};
    interface Top { void op_top(); attribute long rw; readonly attribute long ro; };
    interface Left : Top { void op_left(); };
    interface Right : Top { void op_right(); };
    interface Bottom : Left, Right { void delete(); };
};
)",
                                           nullptr);
    ASSERT_TRUE(run.cxx_written) << run.err;
    const std::map<std::string, tabletest::Table> tables = tabletest::read_tables(run.cxx);
    EXPECT_EQ((std::set<std::string>{"_interface", "_is_a", "_non_existent"}), keys_of(tables.at("POA_K::Empty")));

    const tabletest::Table& bottom = tables.at("POA_K::Bottom");
    EXPECT_EQ((std::set<std::string>{"_interface", "_is_a", "_non_existent", "delete", "op_left", "op_right", "op_top", "_get_rw", "_set_rw", "_get_ro"}),
              keys_of(bottom));
    std::map<std::string, std::string> value;
    for (const tabletest::Entry& e : bottom.entries)
        value[e.key] = e.value;
    EXPECT_EQ("PortableServer::ServantBase::_get_interface_dispatch", value["_interface"]);
    EXPECT_EQ("PortableServer::ServantBase::_is_a_dispatch", value["_is_a"]);
    EXPECT_EQ("PortableServer::ServantBase::_non_existent_dispatch", value["_non_existent"]);
    EXPECT_EQ("POA_K::Bottom::_cxx_delete_yvgen_dispatch", value["delete"]);
    EXPECT_EQ("POA_K::Left::op_left_yvgen_dispatch", value["op_left"]);
    EXPECT_EQ("POA_K::Top::op_top_yvgen_dispatch", value["op_top"]);
    EXPECT_EQ("POA_K::Top::_get_rw_yvgen_dispatch", value["_get_rw"]);
    EXPECT_EQ("POA_K::Top::_set_rw_yvgen_dispatch", value["_set_rw"]);
    EXPECT_EQ("POA_K::Top::_get_ro_yvgen_dispatch", value["_get_ro"]);
}

// The reply handler's replies to attribute accessors arrive under a name
// with a leading "_"; its other operations under their own names.
TEST(Table, ReplyHandlerKeysOfAttributeReplies)
{
    poatest::PoaRun run = poatest::run_poa(R"(
module A {
    interface Target {
        long op(in long x);
        attribute long rw;
        readonly attribute long ro;
    };
};
)",
                                           "-xAMICallbacks");
    ASSERT_TRUE(run.cxx_written) << run.err;
    const std::map<std::string, tabletest::Table> tables = tabletest::read_tables(run.cxx);
    ASSERT_EQ(1u, tables.count("POA_A::AMI_TargetHandler")) << run.cxx;
    std::set<std::string> keys = keys_of(tables.at("POA_A::AMI_TargetHandler"));
    for (const char* k : {"op", "op_excep", "_get_rw_complete", "_get_rw_excep", "_set_rw_complete", "_set_rw_excep",
                          "_get_ro_complete", "_get_ro_excep"})
        EXPECT_EQ(1u, keys.count(k)) << k;
    EXPECT_EQ(0u, keys.count("_set_ro_complete"));
    EXPECT_EQ(0u, keys.count("get_rw_complete"));
}

} // namespace
