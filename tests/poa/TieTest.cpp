// TIE class templates: the second pass over the skeleton header.
#include "HeaderGolden.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using poatest::EXAMPLE_IDL;
using poatest::HeaderScenario;
using poatest::INCLUDED_IDL;
using poatest::INCLUDING_IDL;

// Forwarders of every shape: no, one and several arguments, void and
// non-void results (a typedef result included), readonly and writable
// attributes; an interface without members; a local interface; nesting.
const char* const MEMBERS_IDL = R"(typedef long Count;
interface Ops {
    void none();
    long one(in long a);
    string several(in string a, out long b, inout double c);
    void three(in long a, in long b, in long c);
    readonly attribute long ro;
    attribute string rw;
};
interface Empty {
};
local interface Near {
    void f();
};
interface Both : Ops, Empty {
    Count count();
};
module Outer {
    module Inner {
        interface Deep : ::Ops {
        };
    };
};
)";

class TieGolden : public testing::TestWithParam<HeaderScenario> {};

TEST_P(TieGolden, MatchesGoldenFile) { poatest::expect_header_golden(GetParam()); }

const HeaderScenario TIE_SCENARIOS[] = {
    {"tie_example", EXAMPLE_IDL, "-xTIE"},
    {"tie_members", MEMBERS_IDL, "-xTIE"},
    {"tie_included", INCLUDING_IDL, "-xTIE", {{"inc.idl", INCLUDED_IDL}}},
};

INSTANTIATE_TEST_SUITE_P(Tie, TieGolden, testing::ValuesIn(TIE_SCENARIOS),
                         [](const testing::TestParamInfo<HeaderScenario>& info) { return info.param.name; });

TEST(Tie, PoaInterfacesOffWritesNoTemplate)
{
    poatest::PoaRun run = poatest::run_poa(EXAMPLE_IDL, "-xTIE:-xPOAInterfaces");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.hh.find("template<"), std::string::npos);
    EXPECT_NE(run.hh.find("#include <zantic_sys/poa_tie_base.h>\n"), std::string::npos);
}

} // namespace
