// Skeleton classes of value types that support an interface.
#include "HeaderGolden.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using poatest::HeaderScenario;

// A value type supporting an interface (at file level and in a module),
// one supporting a local interface, one supporting none, a value box.
const char* const VALUES_IDL = R"(interface Account {
    void deposit(in long amount);
    readonly attribute long balance;
};
local interface Helper {
    void help();
};
valuetype Checking supports Account {
    public long limit;
};
valuetype Cached supports Helper {
    public long n;
};
valuetype Plain {
    public long n;
};
valuetype Boxed long;
module Bank {
    valuetype Savings supports ::Account {
        private double rate;
    };
};
)";

class ValueGolden : public testing::TestWithParam<HeaderScenario> {};

TEST_P(ValueGolden, MatchesGoldenFile) { poatest::expect_header_golden(GetParam()); }

const HeaderScenario VALUE_SCENARIOS[] = {
    {"values", VALUES_IDL, nullptr},
    {"values_declspec", VALUES_IDL, "-dVAL_API"},
};

INSTANTIATE_TEST_SUITE_P(Value, ValueGolden, testing::ValuesIn(VALUE_SCENARIOS),
                         [](const testing::TestParamInfo<HeaderScenario>& info) { return info.param.name; });

TEST(Value, PoaInterfacesOffWritesNoValueSkeleton)
{
    poatest::PoaRun run = poatest::run_poa(VALUES_IDL, "-xPOAInterfaces");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.hh.find("class "), std::string::npos) << run.hh;
    EXPECT_EQ(run.hh.find("POA_Checking"), std::string::npos);
}

} // namespace
