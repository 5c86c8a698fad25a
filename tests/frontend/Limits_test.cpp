// Inputs whose cost would grow faster than their size: each is stopped by
// its limit with a located error naming the option that raises it, and
// passes when the limit is raised.
#include "FrontendTestSupport.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <sstream>

namespace {

using yvtest::numbered;
using yvtest::repeat;

// Macros doubling each other `levels` times: the last one expands to
// 2^levels tokens (a sum of ones, which #if can use).
std::string doubling_macros(int levels)
{
    return "#define A0 1\n" + numbered("#define A@ A$ + A$\n", 1, levels + 1);
}

struct LimitCase {
    const char* name;
    std::function<std::string()> text;
    std::vector<std::pair<std::string, std::string>> files;  // included files
    std::size_t IDL_Limits::*member;
    std::size_t limit;       // the limit for the run; 0: the default
    std::size_t raised;      // a limit under which the input passes
    const char* where;       // the error's place
    const char* fragment;    // part of the message
};

std::vector<LimitCase> cases()
{
    // Files that include the next one twice without a guard: 2^40
    // inclusions from 41 small files.
    std::vector<std::pair<std::string, std::string>> fan_out;
    for (int i = 0; i < 40; ++i) {
        const std::string next = "f" + std::to_string(i + 1) + ".idl";
        fan_out.emplace_back("f" + std::to_string(i) + ".idl",
                             "#include \"" + next + "\"\n#include \"" + next + "\"\n");
    }
    fan_out.emplace_back("f40.idl", "struct S { long a; };\n");
    std::vector<std::pair<std::string, std::string>> fan_out_small(fan_out.end() - 6, fan_out.end());

    return {
        {"IncludeFanOut", [] { return std::string("#include \"f0.idl\"\n"); }, fan_out, &IDL_Limits::includes, 0, 0,
         "f38.idl:1:1", "more than 10000 files are included for this input; preprocessing stops "
                         "(-fmax-includes=N raises the limit)"},
        {"IncludeFanOutRaised", [] { return std::string("#include \"f35.idl\"\n"); }, fan_out_small,
         &IDL_Limits::includes, 20, 100, "f39.idl:1:1", "more than 20 files are included"},
        {"PreprocessedSize", [] { return repeat("const long c = 1;\n", 100); }, {}, &IDL_Limits::preprocessed_size,
         1000, 10000, "main.idl:55:12", "preprocessed text of this input exceeds 1000 bytes; preprocessing stops "
                                      "(-fmax-preprocessed-size=N raises the limit)"},
        {"IncludedFileTooLarge", [] { return std::string("\n#include \"big.idl\"\n"); },
         {{"big.idl", repeat("const long c = 1;\n", 100)}}, &IDL_Limits::preprocessed_size, 1000, 10000, "main.idl:2:1",
         "big.idl' takes the files read for this input beyond 1000 bytes"},
        // Each use stays under the limit of one expansion; together they
        // would make gigabytes.
        {"ManyUsesOfALargeMacro", [] { return doubling_macros(18) + "const long c = 0" + repeat(" + A18", 2000) + ";\n"; }, {},
         &IDL_Limits::macro_tokens, 0, 0, "main.idl:20:", "macro expansions of this input exceed 4194304 tokens; no "
                                                        "more macros are expanded (-fmax-macro-tokens=N raises the limit)"},
        {"LargeMacrosInDirectives", [] { return doubling_macros(18) + repeat("#if A18\n#endif\n", 100); }, {},
         &IDL_Limits::macro_tokens, 0, 0, "main.idl:", "macro expansions of this input exceed"},
        {"MacroTokensRaised", [] { return doubling_macros(10) + "const long c = 0" + repeat(" + A10", 4) + ";\n"; },
         {}, &IDL_Limits::macro_tokens, 4000, 100000, "main.idl:12:", "macro expansions of this input exceed 4000"},
        // A parameter used many times multiplies its argument; the
        // replacement is cut while it grows.
        {"ParameterUsedManyTimes",
         [] { return "#define D(x) " + repeat("x ", 100) + "\nD(D(D(D(1))))\n"; }, {},
         &IDL_Limits::macro_expansion, 0, 0, "main.idl:2:1", "expansion of macro 'D' exceeds 1048576 tokens "
                                                             "(-fmax-macro-expansion=N raises the limit)"},
        // Each paste of a chain makes a longer spelling: n^2/2 bytes.
        {"PasteChain", [] { return "#define P(x) x" + repeat(" ## x", 40000) + "\nP(a)\n"; }, {},
         &IDL_Limits::macro_expansion, 0, 0, "main.idl:2:1", "expansion of macro 'P' exceeds"},
        {"StringizeManyTimes",
         [] { return doubling_macros(12) + "#define S(x) " + repeat("#x ", 500) + "\n#define STR(x) S(x)\nSTR(A12)\n"; },
         {}, &IDL_Limits::macro_expansion, 0, 0, "main.idl:16:1", "expansion of macro 'STR' exceeds"},
        // The message names the macro written in the text, not the one
        // whose expansion happened to cross the limit.
        {"OuterMacroIsNamed", [] { return doubling_macros(21) + "A21\n"; }, {}, &IDL_Limits::macro_expansion, 0, 0,
         "main.idl:23:1", "expansion of macro 'A21' exceeds"},
        {"InheritanceChain",
         [] { return "interface I0 { void f0(); };\n" + numbered("interface I@ : I$ { void f@(); };\n", 1, 900); },
         {}, &IDL_Limits::inherited, 0, 0, "main.idl:817:11",
         "'I816' takes the ancestors and inherited declarations of this input beyond 1000000; parsing stops "
         "(-fmax-inherited=N raises the limit)"},
        {"InheritedFromALargeBase",
         [] { return "interface B {\n" + numbered("  void f@();\n", 0, 5000) + "};\n" + numbered("interface D@ : B {};\n", 0, 300); },
         {}, &IDL_Limits::inherited, 0, 0, "main.idl:5202:11", "'D199' takes the ancestors"},
        {"ValueTypesCount", [] { return "valuetype V0 { public long a; };\n" + numbered("valuetype V@ : V$ { public long a@; };\n", 1, 20); },
         {}, &IDL_Limits::inherited, 100, 1000, "main.idl:", "takes the ancestors and inherited declarations of this input beyond 100"},
        {"TypedefChain", [] { return "typedef long T0;\n" + numbered("typedef T$ T@;\n", 1, 300); }, {},
         &IDL_Limits::typedef_depth, 0, 0, "main.idl:257:14",
         "typedef 'T256' names typedefs more than 256 deep (-fmax-typedef-depth=N raises the limit)"},
        {"TypedefChainThroughArraysAndSequences",
         [] { return "typedef long T0;\n" + numbered("typedef sequence<T$> Q@; typedef Q@ T@[2];\n", 1, 20); }, {},
         &IDL_Limits::typedef_depth, 10, 100, "main.idl:6:", "names typedefs more than 10 deep"},
        {"NestingRaised", [] { return repeat("module a { module b { ", 10) + repeat("};", 20); }, {}, &IDL_Limits::nesting, 10, 30,
         "main.idl:1:", "declarations nest more than 10 levels deep (-fmax-nesting=N raises the limit)"},
        {"IncludeDepthRaised", [] { return std::string("#include \"d0.idl\"\n"); },
         {{"d0.idl", "#include \"d1.idl\"\n"}, {"d1.idl", "#include \"d2.idl\"\n"}, {"d2.idl", "#include \"d3.idl\"\n"},
          {"d3.idl", "const long c = 1;\n"}},
         &IDL_Limits::include_depth, 3, 10, "d1.idl:1:1", "#include nests more than 3 files deep"},
        {"IfDepthRaised", [] { return "#if " + repeat("(", 20) + "1" + repeat(")", 20) + "\n#endif\n"; }, {},
         &IDL_Limits::if_depth, 10, 30, "main.idl:1:", "#if expression nests more than 10 levels deep"},
        {"MacroArgDepthRaised", [] { return "#define F(x) x\nconst long c = " + repeat("F(", 20) + "1" + repeat(")", 20) + ";\n"; },
         {}, &IDL_Limits::macro_arg_depth, 10, 30, "main.idl:2:", "macro arguments nest more than 10 levels deep"},
    };
}

fetest::Parsed parse(const LimitCase& c, std::size_t limit)
{
    IDL_Limits limits;
    if (limit)
        limits.*c.member = limit;
    std::string dir;
    if (!c.files.empty()) {
        dir = yvtest::make_temp_dir("limits");
        for (const auto& f : c.files)
            yvtest::write_file(dir + "/" + f.first, f.second);
    }
    fetest::Parsed p = fetest::parse_limited(c.text(), limits, dir);
    if (!dir.empty())
        std::filesystem::remove_all(dir);
    return p;
}

class FrontendLimits : public testing::TestWithParam<LimitCase> {};

TEST_P(FrontendLimits, ReportedWhereReached)
{
    const LimitCase& c = GetParam();
    fetest::Parsed p = parse(c, c.limit);
    EXPECT_FALSE(p.data);
    std::istringstream lines(p.err);
    std::string line, match;
    while (std::getline(lines, line))
        if (line.find(c.fragment) != std::string::npos) {
            match = line;
            break;
        }
    ASSERT_FALSE(match.empty()) << "no error with '" << c.fragment << "' in:\n" << p.err.substr(0, 2000);
    const std::size_t at = match.find(c.where);
    EXPECT_TRUE(at == 0 || (at != std::string::npos && match[at - 1] == '/')) << match;
    EXPECT_NE(match.find(": error: "), std::string::npos) << match;
    // Stopped early: no flood of follow-up errors.
    EXPECT_LE(p.errors, 3) << p.err.substr(0, 2000);
}

// Cases whose input is modest pass under a higher limit (those made to
// exceed any limit, a fan-out of 2^40, are left out).
TEST(FrontendLimitsRaised, InputsPass)
{
    for (const LimitCase& c : cases()) {
        if (!c.raised)
            continue;
        SCOPED_TRACE(c.name);
        fetest::Parsed p = parse(c, c.raised);
        EXPECT_EQ(p.err.find("raises the limit"), std::string::npos) << p.err.substr(0, 2000);
    }
}

INSTANTIATE_TEST_SUITE_P(Limits, FrontendLimits, testing::ValuesIn(cases()),
                         [](const testing::TestParamInfo<LimitCase>& info) { return info.param.name; });

// Checks that used to cost the square of the input: now linear, and they
// still find what they look for.
TEST(LinearChecks, ManyArgumentsManyBasesManyForwardDeclarations)
{
    std::string params;
    for (int i = 0; i < 100000; ++i)
        params += std::string(i ? ", " : "") + "in long p" + std::to_string(i);
    fetest::Parsed ok = fetest::parse("interface I { void f(" + params + "); };");
    EXPECT_TRUE(ok.data) << ok.err.substr(0, 500);
    fetest::Parsed clash = fetest::parse("interface I { void f(" + params + ", in long P77777); };");
    EXPECT_NE(clash.err.find("'P77777' clashes with 'p77777'"), std::string::npos) << clash.err.substr(0, 500);

    std::string bases = numbered("interface B@ {};\n", 0, 20000) + "interface D : ";
    bases += numbered("B@, ", 0, 20000);
    fetest::Parsed twice = fetest::parse(bases + "B12345 {};\n");
    EXPECT_NE(twice.err.find("'D' names base 'B12345' twice"), std::string::npos) << twice.err.substr(0, 500);

    // Defined in the reverse order of their forward declarations.
    std::string fwd = numbered("struct S@;\n", 0, 20000);
    for (int i = 19999; i >= 0; --i)
        fwd += "struct S" + std::to_string(i) + " { long a; };\n";
    fetest::Parsed defined = fetest::parse(fwd + "struct S20000;\n");
    EXPECT_NE(defined.err.find("'S20000' is forward-declared but never defined"), std::string::npos)
        << defined.err.substr(0, 500);
    EXPECT_EQ(defined.errors, 1);
}

} // namespace
