// Golden comparison of generated skeleton implementation files.
#ifndef IMPLGOLDEN_H
#define IMPLGOLDEN_H

#include "PoaTestSupport.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>

namespace impltest {

// Runs the generator over `idl` with `options` and compares the
// implementation file with data/impl/<name>.cxx.golden. The run must be clean.
inline void expect_impl_golden(const std::string& name, const std::string& idl, const char* options)
{
    poatest::PoaRun run = poatest::run_poa(idl, options);
    ASSERT_TRUE(run.parsed) << run.err;
    ASSERT_TRUE(run.cxx_written) << run.err;
    EXPECT_EQ("", run.err);
    EXPECT_EQ(0, run.errors);
    EXPECT_EQ("", yvtest::compare_golden(poatest::golden_path("impl/" + name + ".cxx.golden"), run.cxx)) << name;
}

// One golden scenario: the golden file's name, the IDL and the option text.
struct ImplScenario {
    const char* name;
    std::string idl;
    const char* options;
};

inline std::ostream& operator<<(std::ostream& os, const ImplScenario& s) { return os << s.name; }

// Each test file instantiates this with its own scenarios.
class ImplGolden : public testing::TestWithParam<ImplScenario> {};

inline std::string scenario_name(const testing::TestParamInfo<ImplScenario>& info) { return info.param.name; }

} // namespace impltest

#endif
