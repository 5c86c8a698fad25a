// The implementation file's walk and the skeleton members it defines.
#include "ImplGolden.h"

#include <string>

namespace {

using namespace impltest;

// What the file holds after its fixed preamble.
std::string after_preamble(const std::string& cxx)
{
    const std::string last_include = "#include <zantic_sys/nmval.h>\n\n";
    const std::size_t at = cxx.find(last_include);
    return at == std::string::npos ? cxx : cxx.substr(at + last_include.size());
}

const char* const small = R"(
module Outer {
    module Inner {
        interface Echo { string say(in string text); };
    };
};
)";

TEST_P(ImplGolden, MatchesGoldenFile)
{
    expect_impl_golden(GetParam().name, GetParam().idl, GetParam().options);
}

const ImplScenario IMPL_SCENARIOS[] = {
    {"no_operations", "module M { interface Empty {}; };\n", nullptr},
    {"abstract", R"(
abstract interface Shape { double area(); };
interface Square : Shape { attribute double side; };
)",
     nullptr},
    // A base reached through two paths.
    {"diamond", R"(
module D {
    interface Top { void op_top(); };
    interface Left : Top { void op_left(); };
    interface Right : Top { void op_right(); };
    interface Bottom : Left, Right { void op_bottom(); };
};
)",
     nullptr},
    {"rtti", small, "-xRTTI"},
    {"coloc", small, "-xColocPOA"},
    {"ami", R"(
module A {
    interface Meter {
        long read(in long channel, out string unit);
        attribute long limit;
    };
};
)",
     "-xAMICallbacks"},
    {"values", R"(
module V {
    interface Shown { void show(); };
    local interface Hidden { void hide(); };
    valuetype Plain { public long x; };
    valuetype Showing supports Shown { public long y; };
    valuetype Hiding supports Hidden { public long z; };
    valuetype Box string;
};
valuetype Top supports V::Shown {};
)",
     nullptr},
};

INSTANTIATE_TEST_SUITE_P(Impl, ImplGolden, testing::ValuesIn(IMPL_SCENARIOS), scenario_name);

// Files and switches whose implementation file has nothing after the
// preamble.
TEST(Impl, NothingBeyondThePreamble)
{
    struct Case {
        const char* what;
        const char* idl;
        const char* options;
    };
    const Case cases[] = {
        {"types only", "module M { const long c = 1; struct S { long a; }; typedef sequence<S> Ss; };\n", nullptr},
        {"local interface", "local interface L { void f(); };\n", nullptr},
        {"value box", "valuetype B long;\n", nullptr},
        {"POA interfaces off", "interface I { void f(); }; valuetype V supports I {};\n", "-xPOAInterfaces"},
        {"another back end's block", "%{Cxx\n@switch -xRTTI\n%}\n", nullptr},
    };
    for (const Case& c : cases) {
        poatest::PoaRun run = poatest::run_poa(c.idl, c.options);
        ASSERT_TRUE(run.cxx_written) << c.what << "\n" << run.err;
        EXPECT_EQ("", after_preamble(run.cxx)) << c.what;
    }
}

TEST(Impl, DispatchOff)
{
    poatest::PoaRun run = poatest::run_poa("interface I { void f(); attribute long a; };\n", "-xNoDispatch");
    ASSERT_TRUE(run.cxx_written) << run.err;
    EXPECT_EQ(std::string::npos, run.cxx.find("_lookup_dispatcher"));
    EXPECT_EQ(std::string::npos, run.cxx.find("_yvgen_dispatch"));
    EXPECT_NE(std::string::npos, run.cxx.find("POA_I::_narrow("));
}

// Definitions of nested and included interfaces: every definition starts
// in the first column, and an included file's interfaces get none.
TEST(Impl, NestedAndIncludedInterfaces)
{
    poatest::PoaRun run = poatest::run_poa("#include \"other.idl\"\nmodule A { module B { interface Deep {}; }; };\nmodule A { interface Again {}; };\n",
                                           nullptr, "test.idl", {{"other.idl", "module A { interface Elsewhere {}; };\n"}});
    ASSERT_TRUE(run.cxx_written) << run.err;
    EXPECT_NE(std::string::npos, run.cxx.find("\nPOA_A::B::Deep::~Deep()\n"));
    EXPECT_NE(std::string::npos, run.cxx.find("\nPOA_A::Again::~Again()\n"));
    EXPECT_EQ(std::string::npos, run.cxx.find("Elsewhere"));
}

// Back-end blocks switch options at their place in the walk. The second
// block always clears RTTI again, so the header pass, which reads the same
// blocks before the implementation file is written, leaves it off.
TEST(Impl, BlocksSwitchOptionsWhereTheyStand)
{
    struct Case {
        const char* what;
        const char* block;
        bool rtti;
        bool raises;
    };
    const Case cases[] = {
        {"one switch", "%{POACxx\n@switch -xRTTI\n%}\n", true, false},
        {"two switch lines", "%{POACxx\n@switch -xEnforceRaises\n@switch -xRTTI\n%}\n", true, true},
        {"two words", "%{POACxx\n@switch -xEnforceRaises -xRTTI\n%}\n", true, true},
        {"inside a comment", "%{POACxx\n// @switch -xRTTI\n%}\n", true, false},
        {"set then cleared", "%{POACxx\n@switch -xRTTI +xRTTI\n%}\n", false, false},
        {"words on the next line", "%{POACxx\n@switch\n-xRTTI\n%}\n", false, false},
        {"blank inside the directive", "%{POACxx\n@ switch -xRTTI\n%}\n", false, false},
        {"unsigned word", "%{POACxx\n@switch xRTTI\n%}\n", false, false},
        {"other letter case", "%{poacxx\n@switch -xRTTI\n%}\n", false, false},
    };
    for (const Case& c : cases) {
        const std::string idl = std::string(c.block) + "interface First { void f(); };\n%{POACxx\n@switch +xRTTI +xEnforceRaises\n%}\ninterface Second { void g(); };\n";
        poatest::PoaRun run = poatest::run_poa(idl, nullptr);
        ASSERT_TRUE(run.cxx_written) << c.what << "\n" << run.err;
        EXPECT_EQ(c.rtti, run.cxx.find("_result = dynamic_cast<POA_First*>(_poa);") != std::string::npos) << c.what;
        EXPECT_EQ(c.raises, run.cxx.find("POA_First::f_yvgen_dispatch(\n    PortableServer::ServantBase* _yvp_servant,\n    CORBA::YV_ServerRequest_ptr _yvp_request,\n    CORBA::CompletionStatus& _yvp_status\n)\n{\n    try\n") != std::string::npos)
            << c.what;
        EXPECT_NE(std::string::npos, run.cxx.find("_result = YV_STATIC_CAST(POA_Second*")) << c.what;
    }
}

} // namespace
