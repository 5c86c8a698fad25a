// Dispatch functions: the frame around both bodies, the colocated and the
// request-based bodies, and the colocated declaration of every type kind in
// every passing mode.
#include "ImplGolden.h"

#include <string>

namespace {

using impltest::ImplGolden;

const char* const worked_example = R"(
module M {
    struct SomeStruct { long x; };
    exception SomeEx { string why; };
    exception OtherEx {};
    interface I {
        long op(in string a, inout long b, out SomeStruct c) raises (SomeEx, OtherEx);
        attribute long balance;
        readonly attribute string name;
        void ping();
    };
};
)";

// The types every declaration golden uses; `K` names them in each mode.
const std::string kinds_idl = R"(
module T {
    struct FixS { long a; double b; };
    struct VarS { string s; };
    union FixU switch (long) { case 1: long x; case 2: char c; };
    union VarU switch (long) { case 1: string s; };
    enum E { E1, E2 };
    typedef sequence<long> LongSeq;
    typedef LongSeq LongSeqAgain;
    typedef FixS FixAlias;
    typedef FixAlias FixAliasAgain;
    typedef VarS VarAlias;
    typedef long LongArr[3];
    typedef string StrArr[2];
    typedef fixed<9, 2> Money;
    typedef any AnyAlias;
    typedef string<8> Short8;
    interface Other {};
    abstract interface Abs {};
    valuetype V { public long x; };
    valuetype Boxed long;
};
)";

// One argument of each kind, written in direction `dir`.
std::string kinds_interface(const std::string& dir)
{
    const char* const types[][2] = {
        {"string", "s"},         {"wstring", "ws"},      {"T::Short8", "s8"},       {"any", "a"},
        {"T::AnyAlias", "aa"},   {"long", "l"},          {"unsigned long long", "ull"}, {"char", "c"},
        {"wchar", "wc"},         {"boolean", "b"},       {"octet", "o"},            {"double", "d"},
        {"long double", "ld"},   {"TypeCode", "tc"},     {"Object", "obj"},         {"ValueBase", "vb"},
        {"T::Other", "itf"},     {"T::Abs", "abs"},      {"T::E", "e"},             {"T::FixS", "fs"},
        {"T::VarS", "vs"},       {"T::FixU", "fu"},      {"T::VarU", "vu"},         {"T::FixAliasAgain", "fa"},
        {"T::VarAlias", "va"},   {"T::LongSeq", "q"},    {"T::LongSeqAgain", "qa"}, {"T::LongArr", "la"},
        {"T::StrArr", "sa"},     {"T::Money", "m"},      {"T::V", "v"},             {"T::Boxed", "bx"},
    };
    std::string text = "interface Kinds {\n";
    if (dir == "return") {
        for (const auto& t : types)
            text += std::string("    ") + t[0] + " r_" + t[1] + "();\n";
    } else {
        text += "    void all(";
        for (std::size_t i = 0; i < sizeof types / sizeof types[0]; ++i)
            text += std::string(i ? ",\n        " : "") + dir + " " + types[i][0] + " " + types[i][1];
        text += ");\n";
    }
    return text + "};\n";
}

const impltest::ImplScenario DISPATCH_SCENARIOS[] = {
    {"dispatch_plain", worked_example, nullptr},
    {"dispatch_enforce_raises", worked_example, "-xEnforceRaises"},
    // The colocated declaration of every kind in every mode.
    {"declare_in", kinds_idl + kinds_interface("in"), nullptr},
    {"declare_inout", kinds_idl + kinds_interface("inout"), nullptr},
    {"declare_out", kinds_idl + kinds_interface("out"), nullptr},
    {"declare_return", kinds_idl + kinds_interface("return"), nullptr},
    {"attributes", kinds_idl + R"(
interface Attrs {
    attribute T::VarS vs;
    readonly attribute T::LongArr la;
    attribute any a;
    attribute string<4> anon;
    void op(in string<5> s, out string<6> t);
    string<7> r();
};
)",
     nullptr},
};

INSTANTIATE_TEST_SUITE_P(Dispatch, ImplGolden, testing::ValuesIn(DISPATCH_SCENARIOS), impltest::scenario_name);

// Value boxes of several boxed kinds in every mode, as results and as
// attributes: each is bound like a value type. The input lies beside the
// golden so that the compile test of generated code builds it as well.
TEST(Dispatch, ValueBoxesInEveryMode)
{
    impltest::expect_impl_golden("value_boxes", yvtest::read_file(poatest::golden_path("impl/value_boxes.idl")), nullptr);
}

// Dispatch functions appear for the interface's own operations and
// attributes only, in declaration order; inherited ones belong to the base.
TEST(Dispatch, OnlyOwnOperationsInDeclarationOrder)
{
    poatest::PoaRun run = poatest::run_poa(R"(
interface Base { void inherited(); };
interface Derived : Base {
    void first();
    attribute long second;
    readonly attribute long third;
    oneway void fourth();
};
)",
                                           nullptr);
    ASSERT_TRUE(run.cxx_written) << run.err;
    std::vector<std::string> heads;
    std::size_t at = 0;
    while ((at = run.cxx.find("\nPOA_Derived::", at)) != std::string::npos) {
        const std::size_t end = run.cxx.find('\n', at + 1);
        const std::string line = run.cxx.substr(at + 1, end - at - 1);
        if (line.find("_yvgen_dispatch(") != std::string::npos)
            heads.push_back(line);
        at = end;
    }
    const std::vector<std::string> expected = {
        "POA_Derived::first_yvgen_dispatch(",        "POA_Derived::_get_second_yvgen_dispatch(",
        "POA_Derived::_set_second_yvgen_dispatch(",  "POA_Derived::_get_third_yvgen_dispatch(",
        "POA_Derived::fourth_yvgen_dispatch(",
    };
    EXPECT_EQ(expected, heads);
    EXPECT_EQ(std::string::npos, run.cxx.find("POA_Derived::inherited_yvgen_dispatch("));
    EXPECT_NE(std::string::npos, run.cxx.find("POA_Base::inherited_yvgen_dispatch("));
}

} // namespace
