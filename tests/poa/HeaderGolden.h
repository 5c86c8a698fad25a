// Golden scenarios of the skeleton header: an IDL text, the option text,
// and the expected header in tests/poa/data/hh/<name>.hh.
#ifndef HEADERGOLDEN_H
#define HEADERGOLDEN_H

#include "PoaTestSupport.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>

namespace poatest {

// Module M with interface B, and D : B with an operation, a readonly and a
// writable attribute.
inline constexpr const char* EXAMPLE_IDL = R"(module M {
    interface B {
    };
    interface D : B {
        long op(in long x);
        readonly attribute long ro;
        attribute long rw;
    };
};
)";

// Declarations of an included file get no text; the main file's reopening
// of the included module does.
inline constexpr const char* INCLUDING_IDL = R"(#include "inc.idl"
module X {
    interface W {
    };
};
)";
inline constexpr const char* INCLUDED_IDL = R"(module X {
    interface Y {
    };
};
interface Z {
};
)";

struct HeaderScenario {
    const char* name;
    const char* idl;
    const char* options;
    std::map<std::string, std::string> extra_files = {};
};

inline std::ostream& operator<<(std::ostream& os, const HeaderScenario& s) { return os << s.name; }

// Runs the scenario and compares the header with its golden file; the
// implementation file must have been written and nothing reported.
inline void expect_header_golden(const HeaderScenario& s)
{
    PoaRun run = run_poa(s.idl, s.options, "test.idl", s.extra_files);
    ASSERT_TRUE(run.parsed) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(run.cxx_written);
    ASSERT_TRUE(run.hh_written);
    EXPECT_EQ(yvtest::compare_golden(golden_path(std::string("hh/") + s.name + ".hh.golden"), run.hh), "");
}

} // namespace poatest

#endif
