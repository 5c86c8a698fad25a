// The skeleton header: skeleton classes of interfaces and their POA scopes
// under the switches that shape them, and the two POA errors.
#include "HeaderGolden.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using poatest::EXAMPLE_IDL;
using poatest::HeaderScenario;
using poatest::INCLUDED_IDL;
using poatest::INCLUDING_IDL;

// File-level interfaces, one with several bases; declarations that get no
// skeleton text around them.
const char* const ROOT_IDL = R"(const long LIMIT = 10;
typedef sequence<long> Longs;
struct Point { long x; long y; };
exception Failed { string why; };
interface A {
    void ping();
};
interface B {
    string name(in string prefix, out long count, inout double ratio);
};
interface C : A, B {
    oneway void notify(in A who);
    Longs values();
};
)";

const char* const ABSTRACT_LOCAL_IDL = R"(module Shapes {
    abstract interface Drawable {
        void draw();
        attribute long colour;
    };
    local interface Cache {
        void flush();
    };
    interface Square : Drawable {
        readonly attribute float side;
    };
    module Inner {
        interface Empty {
        };
    };
    module Nothing {
    };
};
)";

// IDL names that are C++ keywords get the clash prefix in every C++ name.
const char* const KEYWORD_IDL = R"(interface Lexer {
    void delete(in long new);
    attribute long class;
};
)";

const char* const AMI_IDL = R"(module Async {
    interface Quote {
        double price(in string symbol);
        readonly attribute long count;
    };
};
)";

class HeaderGolden : public testing::TestWithParam<HeaderScenario> {};

TEST_P(HeaderGolden, MatchesGoldenFile) { poatest::expect_header_golden(GetParam()); }

const HeaderScenario HEADER_SCENARIOS[] = {
    {"example", EXAMPLE_IDL, nullptr},
    {"example_no_namespaces", EXAMPLE_IDL, "-xNoNamespaces"},
    {"example_declspec", EXAMPLE_IDL, "-d"},
    {"example_declspec_named", EXAMPLE_IDL, "-dMY_API"},
    {"example_prefix_client_ext", EXAMPLE_IDL, "-ipfx:-bhpp"},
    {"example_rtti", EXAMPLE_IDL, "-xRTTI"},
    {"example_no_dispatch", EXAMPLE_IDL, "-xNoDispatch"},
    {"root_interfaces", ROOT_IDL, nullptr},
    {"abstract_local", ABSTRACT_LOCAL_IDL, nullptr},
    {"keywords", KEYWORD_IDL, nullptr},
    {"ami", AMI_IDL, "-xAMICallbacks"},
    {"ami_no_poa", AMI_IDL, "-xPOAInterfaces:-xAMICallbacks"},
    {"included", INCLUDING_IDL, nullptr, {{"inc.idl", INCLUDED_IDL}}},
};

INSTANTIATE_TEST_SUITE_P(Header, HeaderGolden, testing::ValuesIn(HEADER_SCENARIOS),
                         [](const testing::TestParamInfo<HeaderScenario>& info) { return info.param.name; });

TEST(Header, DirectoryOptionsMoveFilesNotText)
{
    poatest::PoaRun plain = poatest::run_poa(EXAMPLE_IDL, nullptr);
    std::string expected = plain.hh;
    poatest::PoaRun moved = poatest::run_poa(EXAMPLE_IDL, "-Ohinc:-Ocsrc/", "test.idl",
                                             {{"inc/keep", ""}, {"src/keep", ""}}, "inc/testS.hh", "src/testS.cxx");
    EXPECT_EQ(moved.err, "");
    ASSERT_TRUE(moved.hh_written);
    EXPECT_TRUE(moved.cxx_written);
    EXPECT_EQ(moved.hh, expected);
    EXPECT_NE(moved.cxx.find("#include \"testS.hh\"\n"), std::string::npos);
}

struct ErrorScenario {
    const char* name;
    const char* idl;
    const char* options;
    const char* message;   // the message after the message header
};

std::ostream& operator<<(std::ostream& os, const ErrorScenario& s) { return os << s.name; }

class HeaderError : public testing::TestWithParam<ErrorScenario> {};

// The error is reported twice, the header stays as far as it was written
// and no implementation file is started.
TEST_P(HeaderError, ReportedTwiceAndRunAbandoned)
{
    const ErrorScenario& s = GetParam();
    poatest::PoaRun run = poatest::run_poa(s.idl, s.options);
    ASSERT_TRUE(run.parsed);
    EXPECT_EQ(poatest::count(run.err, s.message), 2u) << run.err;
    EXPECT_EQ(poatest::count(run.err, "\n"), 2u) << run.err;
    EXPECT_EQ(poatest::count(run.err, "test.idl:"), 2u) << run.err;
    EXPECT_EQ(run.errors, 2);
    EXPECT_FALSE(run.cxx_written);
    ASSERT_TRUE(run.hh_written);
    EXPECT_EQ(run.hh.find("#endif"), std::string::npos);
    EXPECT_EQ(yvtest::compare_golden(poatest::golden_path(std::string("hh/") + s.name + ".hh.golden"), run.hh), "");
}

const ErrorScenario ERROR_SCENARIOS[] = {
    {"error_reopened_module", "module M { interface A { }; };\nmodule M { interface B { }; };\n", "-xNoNamespaces",
     "POA Error. Module M can not be reopened. Namespaces are not supported by your C++ compiler.\n"},
    {"error_native", "native Handle;\ninterface Res {\n    void use(in Handle h);\n    void later();\n};\n", nullptr,
     "POA Error. Cannot generate a POA dispatch method that contains a native type.\n"},
    {"error_native_attribute", "native Handle;\ninterface Res {\n    attribute Handle h;\n};\n", nullptr,
     "POA Error. Cannot generate a POA dispatch method that contains a native type.\n"},
};

INSTANTIATE_TEST_SUITE_P(Header, HeaderError, testing::ValuesIn(ERROR_SCENARIOS),
                         [](const testing::TestParamInfo<ErrorScenario>& info) { return info.param.name; });

TEST(Header, ReopenedModuleWithNamespacesIsWritten)
{
    poatest::PoaRun run = poatest::run_poa("module M { interface A { }; };\nmodule M { interface B { }; };\n", nullptr);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(poatest::count(run.hh, "namespace POA_M\n"), 2u);
    EXPECT_TRUE(run.cxx_written);
}

TEST(Header, NativeWithoutDispatchIsNoError)
{
    poatest::PoaRun run = poatest::run_poa("native Handle;\ninterface Res {\n    void use(in Handle h);\n};\n",
                                           "-xNoDispatch");
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(run.cxx_written);
    EXPECT_NE(run.hh.find("use("), std::string::npos);
    EXPECT_NE(run.hh.find("#endif\n"), std::string::npos);
}

} // namespace
