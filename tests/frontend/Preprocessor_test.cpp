// The built-in preprocessor: output text (the contract with the IDL lexer),
// diagnostics, includes, and its limits on hostile input.
#include "IDL_Preprocessor.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

struct PPRun {
    bool ok = false;
    std::string text;
    std::string err;
    std::vector<PP_Include> includes;
};

PPRun preprocess_text(const std::string& text, const IDL_FrontendOptions& options = IDL_FrontendOptions(),
                    const std::string& name = "t.idl")
{
    PPRun r;
    PP_Result result;
    testing::internal::CaptureStderr();
    IDL_Preprocessor pp(options);
    r.ok = pp.run_text(name, text, result);
    r.err = testing::internal::GetCapturedStderr();
    r.text = result.text;
    r.includes = result.includes;
    return r;
}

PPRun preprocess_file(const std::string& path, const IDL_FrontendOptions& options = IDL_FrontendOptions())
{
    PPRun r;
    PP_Result result;
    testing::internal::CaptureStderr();
    IDL_Preprocessor pp(options);
    r.ok = pp.run_file(path, result);
    r.err = testing::internal::GetCapturedStderr();
    r.text = result.text;
    r.includes = result.includes;
    return r;
}

// The output after the main file's opening marker.
std::string body(const PPRun& r, const std::string& name = "t.idl")
{
    const std::string first = "# 1 \"" + name + "\" 1\n";
    EXPECT_EQ(r.text.compare(0, first.size(), first), 0) << r.text;
    return r.text.substr(std::min(first.size(), r.text.size()));
}

// ---- Output of valid input ----

struct OutputCase {
    const char* name;
    const char* input;
    const char* expected;  // after the opening marker
};

const OutputCase kOutputCases[] = {
    {"CommentsBecomeBlanksKeepingColumns",
     "a /* x */ b // c\n/* multi\nline */ c\nd\n",
     "a         b\n\n        c\nd\n"},
    {"LiteralsAreNotScanned",
     "#define X 1\n\"X /* no */ // no\" 'X' X\n",
     "\n\"X /* no */ // no\" 'X' 1\n"},
    {"BackslashNewlineJoinsLines",
     "#define LONG 1 + \\\n  2\nLONG\ninter\\\nface I;\n",
     "\n\n1 + 2\ninterface\n     I;\n"},
    {"ObjectMacrosRescan",
     "#define A B + 1\n#define B 2\nconst long x = A;\n",
     "\n\nconst long x = 2 + 1;\n"},
    {"FunctionMacroArguments",
     "#define ADD(a, b) ((a) + (b))\nADD(1, (2, 3))\nADD( x , )\n",
     "\n((1) + ((2, 3)))\n((x) + ())\n"},
    {"ArgumentsAreExpandedBeforeSubstitution",
     "#define ID(x) x\n#define TWO 2\nID(ID(TWO))\n",
     "\n\n2\n"},
    {"StringizingEscapesQuotesAndBackslashes",
     "#define S(x) #x\nS(a  \"b\\n\"   'c')\nS()\n",
     "\n\"a \\\"b\\\\n\\\" 'c'\"\n\"\"\n"},
    {"PastingMakesOneToken",
     "#define CAT(a, b) a ## b\n#define X 5\nCAT(X, Y) CAT(1, 2) CAT(, z) CAT(q, )\n",
     "\n\nXY        12        z        q\n"},
    {"PastedNameIsExpanded",
     "#define CAT(a, b) a ## b\n#define XY done\nCAT(X, Y)\n",
     "\n\ndone\n"},
    {"RecursiveMacrosStopAtTheirOwnName",
     "#define A A B\n#define B A\nA\n#define f(x) f(x) x\nf(f(1))\n",
     "\n\nA A\n\nf(f(1) 1) f(1) 1\n"},
    {"FunctionMacroNameWithoutParenthesisIsPlain",
     "#define F(x) x\nF + F\n",
     "\nF + F\n"},
    {"CallSpanningLinesStaysOnItsFirstLine",
     "#define F(a, b) a b\nF(1,\n  2) x\ny\n",
     "\n1 2\n     x\ny\n"},
    {"FunctionMacroAtLineEndBeforeDirective",
     "#define F(x) [x]\nF\n#define G 1\n(G)\n",
     "\nF\n\n(1)\n"},
    {"NoAccidentalTokenJoins",
     "#define NEG -1\n#define MINUS(x) -x\n#define C :\n#define CC C:\n#define DIV(a) a/a\nMINUS(NEG)\nCC\nDIV(*)\n",
     "\n\n\n\n\n- -1\n: :\n* / *\n"},
    {"VariadicMacro",
     "#define V(a, ...) a: __VA_ARGS__\nV(1) V(1, 2, 3)\n",
     "\n1:   1: 2, 3\n"},
    {"Conditionals",
     "#define ONE 1\n#if ONE == 1 && defined ONE && defined(ONE) && !defined TWO\na\n#elif 1\nb\n#else\nc\n#endif\n"
     "#ifdef TWO\nd\n#elif ONE + 1 == 2\ne\n#endif\n#ifndef TWO\nf\n#endif\n#if 0\n#if 1\ng\n#else\nh\n#endif\n#endif\n",
     "\n\na\n# 12 \"t.idl\"\ne\n\n\nf\n"},
    {"ConditionalArithmetic",
     "#if (-1 < 0u) || (0x10 >> 2) != 4 || 1 ? 0 : 1\nno\n#elif 7 / 2 * 2 == 6 && 7 % 2 == 1 && (1 << 62) > 0 && ~0 == -1\nyes\n#endif\n"
     "#if 'A' == 65 && '\\n' == 10 && 010 == 8 && 0b11 == 3 && 18446744073709551615 == -1\nchars\n#endif\n",
     "\n\n\nyes\n\n\nchars\n"},
    {"UnknownIdentifiersAreZero",
     "#if UNKNOWN || unknown\nno\n#else\nyes\n#endif\n",
     "\n\n\nyes\n"},
    {"ShortCircuitSkipsDivisionByZero",
     "#if 0 && 1 / 0\nno\n#elif 1 || 1 % 0\nyes\n#endif\n#if 1 ? 2 : 1 / 0\nalso\n#endif\n",
     "\n\n\nyes\n\n\nalso\n"},
    {"InactiveGroupsIgnoreBrokenText",
     "#if 0\ndon't \"unterminated\n#bogus directive\n#else\nok\n#endif\n",
     "\n\n\n\nok\n"},
    {"LongInactiveGroupGetsAMarker",
     "a\n#if 0\n1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n#endif\nb\n",
     "a\n# 14 \"t.idl\"\nb\n"},
    {"PassThroughPragmas",
     "#pragma   prefix   \"omg.org\"  // why\nmodule M {\n#pragma ID M::I \"IDL:M/I:1.0\"\n"
     "#  pragma version  M::I 1.2\n#pragma hh #include \"x.h\"\n#pragma javaPackage \"a.b\"\n#pragma once\n};\n",
     "#pragma prefix \"omg.org\"\nmodule M {\n#pragma ID M::I \"IDL:M/I:1.0\"\n#pragma version M::I 1.2\n\n\n\n};\n"},
    {"PragmasAreNotExpanded",
     "#define P other\n#pragma prefix P\n",
     "\n#pragma prefix P\n"},
    {"BackEndBlockIsVerbatim",
     "#define N 1\nmodule M {\n  %{POACxx\n/* kept */ N #define kept\n@include \"x.h\"\n %}\n};\n",
     "\nmodule M {\n%{POACxx\n/* kept */ N #define kept\n@include \"x.h\"\n%}\n};\n"},
    {"BackEndBlockInInactiveGroupIsDropped",
     "#if 0\n%{POACxx\n#endif\n%}\n#endif\nx\n",
     "\n\n\n\n\nx\n"},
    {"LineDirectiveRenumbers",
     "#line 40\n__LINE__ __FILE__\n#line 7 \"other.idl\"\n__FILE__ __LINE__\n# 20 \"third.idl\" 2\n__LINE__\n",
     "# 40 \"t.idl\"\n40       \"t.idl\"\n# 7 \"other.idl\"\n\"other.idl\" 7\n# 20 \"third.idl\"\n20\n"},
    {"PredefinedMacros",
     "__IDL__ __YVIDL__\n#ifdef __LINE__\n__LINE__\n#endif\n",
     "1       1\n\n3\n"},
    {"CarriageReturnLineEnds",
     "#define A 1\r\nA \\\r\n+ A\r\n%{POACxx\r\nx\r\n%}\r\n",
     "\n1\n+ 1\n%{POACxx\nx\n%}\n"},
    {"ConditionalsInsideMacroArguments",
     "#define F(a, b) a b\nF(1,\n#ifdef NOPE\n  2\n#else\n  3\n#endif\n) x\n",
     "\n1 3\n\n\n\n\n\n  x\n"},
    {"NoLineStartsLikeABlockOrDirective",
     "#define OPEN %{\nx \\\n%{POACxx\n/**/%{\nOPEN\n",
     "\nx\n% {POACxx\n    % {\n% {\n"},
    {"RedefinitionWithSameTextIsQuiet",
     "#define A(x) x + 1\n#define A(x)   x   +   1\n#undef A\n#undef A\nA(2)\n",
     "\n\n\n\nA(2)\n"},
};

class PreprocessorOutput : public testing::TestWithParam<OutputCase> {};

TEST_P(PreprocessorOutput, Text)
{
    const OutputCase& c = GetParam();
    PPRun r = preprocess_text(c.input);
    EXPECT_TRUE(r.ok) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(body(r), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Preprocessor, PreprocessorOutput, testing::ValuesIn(kOutputCases),
                         [](const testing::TestParamInfo<OutputCase>& info) { return info.param.name; });

TEST(Preprocessor, CommandLineDefinesAndUndefines)
{
    IDL_FrontendOptions options;
    options.defines = {{"A", "1"}, {"B", "x y"}, {"F(a)", "<a>"}, {"GONE", "1"}};
    options.undefines = {"GONE", "__YVIDL__"};
    PPRun r = preprocess_text("A B F(2) GONE __YVIDL__\n", options);
    EXPECT_TRUE(r.ok) << r.err;
    EXPECT_EQ(body(r), "1 x y <2> GONE __YVIDL__\n");
}

TEST(Preprocessor, SameOutputEveryRun)
{
    const std::string text = "#define F(x) #x x ## x\nF(a) F(b)\n#pragma prefix \"p\"\n%{POACxx\nz\n%}\n";
    IDL_Preprocessor pp{IDL_FrontendOptions()};
    PP_Result first, second;
    ASSERT_TRUE(pp.run_text("t.idl", text, first));
    ASSERT_TRUE(pp.run_text("t.idl", text, second));
    EXPECT_EQ(first.text, second.text);
    EXPECT_EQ(first.text, "# 1 \"t.idl\" 1\n\n\"a\" aa \"b\" bb\n#pragma prefix \"p\"\n%{POACxx\nz\n%}\n");
}

TEST(Preprocessor, MarkersEscapeFileNames)
{
    PPRun r = preprocess_text("x\n", IDL_FrontendOptions(), "we\"ird\\name.idl");
    EXPECT_EQ(r.text, "# 1 \"we\\\"ird\\\\name.idl\" 1\nx\n");
    r = preprocess_text("#line 3 \"a\\\\b\"\n__FILE__\n");
    EXPECT_EQ(body(r), "# 3 \"a\\\\b\"\n\"a\\\\b\"\n");
}

// ---- Expansion semantics: the classic examples, compared token by token ----

// The spellings of the tokens of `text`, marker lines left out.
std::vector<std::string> spellings(const std::string& text)
{
    std::string code;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find('\n', pos);
        if (end == std::string::npos)
            end = text.size();
        if (text.compare(pos, 2, "# ") != 0)
            code.append(text, pos, end - pos).append("\n");
        pos = end + 1;
    }
    PP_SpellingArena arena;
    PP_Lexer lexer(code, arena, nullptr);
    lexer.set_quiet(true);
    std::vector<std::string> out;
    for (PP_Token tok; lexer.lex(tok), tok.kind != PP_Token::End;)
        if (tok.kind != PP_Token::Newline)
            out.push_back(tok.str());
    return out;
}

struct ExpansionCase {
    const char* name;
    const char* input;
    const char* expected;
};

const ExpansionCase kExpansionCases[] = {
    {"RescanAndRedefinition",
     "#define x 3\n#define f(a) f(x * (a))\n#undef x\n#define x 2\n#define g f\n#define z z[0]\n"
     "#define h g(~\n#define m(a) a(w)\n#define w 0,1\n#define t(a) a\n#define p() int\n#define q(x) x\n"
     "#define r(x,y) x ## y\n#define str(x) # x\n"
     "f(y+1) + f(f(z)) % t(t(g)(0) + t)(1);\ng(x+(3,4)-w) | h 5) & m\n(f)^m(m);\n"
     "p() i[q()] = { q(1), r(2,3), r(4,), r(,5), r(,) };\nchar c[2][6] = { str(hello), str() };\n",
     "f(2 * (y+1)) + f(2 * (f(2 * (z[0])))) % f(2 * (0)) + t(1);\n"
     "f(2 * (2+(3,4)-0,1)) | f(2 * (~ 5)) & f(2 * (0,1))^m(0,1);\n"
     "int i[] = { 1, 23, 4, 5, };\nchar c[2][6] = { \"hello\", \"\" };\n"},
    {"StringizingAndPasting",
     "#define str(s) # s\n#define xstr(s) str(s)\n"
     "#define debug(s, t) printf(\"x\" # s \"= %d, x\" # t \"= %s\", \\\n x ## s, x ## t)\n"
     "#define glue(a, b) a ## b\n#define xglue(a, b) glue(a, b)\n#define HIGHLOW \"hello\"\n"
     "#define LOW LOW \", world\"\n"
     "debug(1, 2);\nfputs(str(strncmp(\"abc\\0d\", \"abc\", '\\4') // this goes away\n == 0) str(: @\\n), s);\n"
     "xstr(glue(a, b)) glue(HIGH, LOW);\nxglue(HIGH, LOW)\n",
     "printf(\"x\" \"1\" \"= %d, x\" \"2\" \"= %s\", x1, x2);\n"
     "fputs(\"strncmp(\\\"abc\\\\0d\\\", \\\"abc\\\", '\\\\4') == 0\" \": @\\n\", s);\n"
     "\"ab\" \"hello\";\n\"hello\" \", world\"\n"},
    {"Placemarkers",
     "#define t(x,y,z) x ## y ## z\n"
     "int j[] = { t(1,2,3), t(,4,5), t(6,,7), t(8,9,),\n t(10,,), t(,11,), t(,,12), t(,,) };\n",
     "int j[] = { 123, 45, 67, 89, 10, 11, 12, };\n"},
    {"PastedHashIsNoOperator",
     "#define hash_hash # ## #\n#define mkstr(a) # a\n#define in_between(a) mkstr(a)\n"
     "#define join(c, d) in_between(c hash_hash d)\nchar p[] = join(x, y);\n",
     "char p[] = \"x ## y\";\n"},
    {"VariableArguments",
     "#define debug(...) fprintf(stderr, __VA_ARGS__)\n#define showlist(...) puts(#__VA_ARGS__)\n"
     "#define report(test, ...) ((test)?puts(#test):\\\n printf(__VA_ARGS__))\n"
     "debug(\"Flag\");\ndebug(\"X = %d\\n\", x);\nshowlist(The first, second, and third items.);\n"
     "report(x>y, \"x is %d but y is %d\", x, y);\n",
     "fprintf(stderr, \"Flag\");\nfprintf(stderr, \"X = %d\\n\", x);\n"
     "puts(\"The first, second, and third items.\");\n"
     "((x>y)?puts(\"x>y\"): printf(\"x is %d but y is %d\", x, y));\n"},
    {"ParenthesisFromTheFollowingText",
     "#define f(a) a*g\n#define g(a) f(a)\nf(2)(9)\n",
     "2*9*g\n"},
};

class PreprocessorExpansion : public testing::TestWithParam<ExpansionCase> {};

TEST_P(PreprocessorExpansion, Tokens)
{
    const ExpansionCase& c = GetParam();
    PPRun r = preprocess_text(c.input);
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(spellings(r.text), spellings(c.expected)) << r.text;
}

INSTANTIATE_TEST_SUITE_P(Preprocessor, PreprocessorExpansion, testing::ValuesIn(kExpansionCases),
                         [](const testing::TestParamInfo<ExpansionCase>& info) { return info.param.name; });

// ---- #if arithmetic ----

struct ConditionCase {
    const char* expression;
    bool value;
    bool overflows = false;  // signed arithmetic out of range: one warning
};

const ConditionCase kConditionCases[] = {
    {"1 + 2 * 3 == 7", true},
    {"(1 + 2) * 3 == 9", true},
    {"10 - 4 - 3 == 3", true},
    {"1 << 2 + 1 == 8", true},
    {"1 | 2 ^ 3 & 4 == 3", true},
    {"-1 < 0", true},
    {"-1 < 0u", false},
    {"-1 > 0U", true},
    {"0xFFFFFFFFFFFFFFFF == -1", true},
    {"9223372036854775807 + 1 < 0", true, true},
    {"-9223372036854775807 - 1 < 0", true},
    {"(-9223372036854775807 - 1) / -1 < 0", true, true},
    {"(-9223372036854775807 - 1) % -1 == 0", true},
    {"-(-9223372036854775807 - 1) < 0", true, true},
    {"-9223372036854775807 - 2 > 0", true, true},
    {"4294967296 * 4294967296 == 0", true, true},
    {"4294967296u * 4294967296 == 0", true},
    {"9223372036854775807u + 1 > 0", true},
    {"0 && 1 << 63", false},
    {"(1 << 62) * 2 < 0", true, true},
    {"-7 / 2 == -3 && -7 % 2 == -1", true},
    {"7u / 2 == 3", true},
    {"1 << 63 < 0", true, true},
    {"-1 << 63 < 0", true},
    {"3 << 62 < 0", true, true},
    {"1 << 64 == 0", true, true},
    {"-8 >> 1 == -4", true},
    {"-1 >> 70 == -1", true},
    {"8 >> -1 == 16", true},
    {"~0u == 18446744073709551615", true},
    {"!0 + !5 == 1", true},
    {"(2 || 0) == 1 && (2 && 3) == 1", true},
    {"1 ? 2 : 3", true},
    {"0 ? 2 : 0", false},
    {"(0 ? 1 : -1u) > 0", true},
    {"0, 1", true},
    {"1, 0", false},
    {"017 == 15 && 0x1f == 31 && 0B101 == 5", true},
    {"10UL == 10 && 10ll == 10 && 10uLL == 10", true},
    {"'a' == 97 && '\\0' == 0 && '\\x41' == 65 && '\\101' == 65", true},
    {"'\\377' < 0 && L'\\377' > 0", true},
    {"'ab' == 24930", true},
    {"defined FOO", true},
    {"defined(BAR)", false},
    {"FOO + FOO == 2 * FOO", true},
    {"UNDEFINED == 0 && true == 0", true},
};

TEST(Preprocessor, ConditionValues)
{
    for (const ConditionCase& c : kConditionCases) {
        PPRun r = preprocess_text(std::string("#define FOO 4\n#if ") + c.expression + "\nyes\n#else\nno\n#endif\n");
        EXPECT_TRUE(r.ok) << c.expression;
        const std::string warning = "warning: integer overflow in #if expression: the result does not fit in 64 "
                                    "signed bits and wraps\n";
        if (c.overflows)
            EXPECT_TRUE(r.err.rfind("t.idl:2:", 0) == 0 && r.err.find(warning) == r.err.size() - warning.size())
                << c.expression << "\n" << r.err;
        else
            EXPECT_EQ(r.err, "") << c.expression;
        EXPECT_EQ(body(r), c.value ? "\n\nyes\n" : "\n\n\n\nno\n") << c.expression;
    }
}

// ---- Diagnostics ----

struct ErrorCase {
    const char* name;
    const char* input;
    const char* expected;  // the whole error stream
};

const ErrorCase kErrorCases[] = {
    {"UnterminatedComment", "a\n  /* open\n\n", "t.idl:2:3: error: unterminated comment\n"},
    {"UnterminatedLiterals", "x \"abc\ny 'c\n",
     "t.idl:1:3: error: unterminated string literal\nt.idl:2:3: error: unterminated character constant\n"},
    {"UnterminatedConditionals", "#if 1\n  #ifdef X\n#else\n",
     "t.idl:1:1: error: unterminated #if\nt.idl:2:3: error: unterminated #ifdef\n"},
    {"ConditionalsWithoutIf", "#else\n#endif\n#elif 1\n",
     "t.idl:1:1: error: #else without #if\nt.idl:2:1: error: #endif without #if\nt.idl:3:1: error: #elif without #if\n"},
    {"BranchesAfterElse", "#if 0\n#else\n#elif 1\n#else\n#endif\n",
     "t.idl:3:1: error: #elif after #else\nt.idl:4:1: error: #else after #else\n"},
    {"UnknownAndInvalidDirectives", "#foo bar\n#\"x\"\n#\n", "t.idl:1:2: error: unknown preprocessing directive #foo\n"
                                                         "t.idl:2:2: error: invalid preprocessing directive: '#' followed by '\"x\"'\n"},
    {"MalformedDefines", "#define\n#define 3\n#define defined\n#define F(a, a)\n#define G(a b)\n#define H(a\n#define S(a) #b\n#define P ## x\n",
     "t.idl:1:1: error: #define without a macro name\n"
     "t.idl:2:9: error: '3' cannot be used as a macro name\n"
     "t.idl:3:9: error: 'defined' cannot be used as a macro name\n"
     "t.idl:4:14: error: duplicate parameter 'a' of macro 'F'\n"
     "t.idl:5:13: error: expected ',' or ')' in the parameter list of macro 'G', found 'b'\n"
     "t.idl:6:9: error: missing ')' in the parameter list of macro 'H'\n"
     "t.idl:7:14: error: '#' in macro 'S' is not followed by a macro parameter\n"
     "t.idl:8:11: error: '##' cannot appear at either end of the expansion of macro 'P'\n"},
    {"Redefinition", "#define A 1\n#define A 2\nA\n", "t.idl:2:9: warning: macro 'A' redefined\n"},
    {"ArgumentCount", "#define F(a, b) a b\nF(1)\n  F(1, 2, 3)\n#define N() n\nN(1)\n",
     "t.idl:2:1: error: macro 'F' takes 2 argument(s), but 1 given\n"
     "t.idl:3:3: error: macro 'F' takes 2 argument(s), but 3 given\n"
     "t.idl:5:1: error: macro 'N' takes 0 argument(s), but 1 given\n"},
    {"UnterminatedCall", "#define F(a) a\nx F(1,\n(2)\n", "t.idl:2:3: error: unterminated call of macro 'F'\n"},
    {"DirectiveInsideArguments", "#define F(a) a\nF(1\n#include \"x.idl\"\n#pragma prefix \"p\"\n#if 1\n)\n#endif\n",
     "t.idl:3:1: error: #include cannot appear inside the arguments of a macro call\n"
     "t.idl:4:1: error: #pragma cannot appear inside the arguments of a macro call\n"},
    {"InvalidPaste", "#define CAT(a, b) a ## b\nCAT(+, /)\n", "t.idl:2:5: error: pasting '+' and '/' does not give a valid preprocessing token\n"},
    {"IfExpressions", "#if\n#endif\n#if 1 +\n#endif\n#if (1\n#endif\n#if 1 2\n#endif\n#if 1 / 0\n#endif\n#if 08\n#endif\n#if 1.5\n#endif\n"
                      "#if 99999999999999999999\n#endif\n#if \"s\"\n#endif\n#if defined\n#endif\n#if defined(X\n#endif\n#if ''\n#endif\n#if 1 ? 2\n#endif\n",
     "t.idl:1:1: error: #if with no expression\n"
     "t.idl:3:1: error: #if expression ends where a value is expected\n"
     "t.idl:5:1: error: #if expression ends where ')' is expected\n"
     "t.idl:7:7: error: unexpected '2' in #if expression\n"
     "t.idl:9:7: error: division by zero in #if expression\n"
     "t.idl:11:5: error: invalid integer constant '08' in #if expression\n"
     "t.idl:13:5: error: invalid integer constant '1.5' in #if expression\n"
     "t.idl:15:5: error: integer constant '99999999999999999999' is too large\n"
     "t.idl:17:5: error: expected a value in #if expression, found '\"s\"'\n"
     "t.idl:19:5: error: 'defined' without a macro name\n"
     "t.idl:21:13: error: #if expression ends where ')' is expected\n"
     "t.idl:23:5: error: invalid character constant '' in #if expression\n"
     "t.idl:25:1: error: #if expression ends where ':' is expected\n"},
    {"ErrorAndWarningDirectives", "#error stop /* c */ here, don't go\n#warning careful  now\n#if 0\n#error skipped\n#endif\n",
     "t.idl:1:1: error: #error stop here, don't go\nt.idl:2:1: warning: #warning careful now\n"},
    {"ExtraTokens", "#ifdef A B\n#else C\n#endif D\n#undef A B\n",
     "t.idl:1:10: warning: extra tokens at end of #ifdef directive\n"
     "t.idl:2:7: warning: extra tokens at end of #else directive\n"
     "t.idl:3:8: warning: extra tokens at end of #endif directive\n"
     "t.idl:4:10: warning: extra tokens at end of #undef directive\n"},
    {"LineDirectives", "#line\n#line x\n#line 4294967296\n#line 5 name\n",
     "t.idl:1:1: error: #line without a line number\n"
     "t.idl:2:7: error: #line expects a line number, found 'x'\n"
     "t.idl:3:7: error: line number 4294967296 in #line is out of range\n"
     "t.idl:4:9: error: #line expects a file name in double quotes, found 'name'\n"},
    {"ErrorsAfterLineUseThePresumedPlace", "#line 100 \"gen.idl\"\n\n  #bad\n", "gen.idl:101:4: error: unknown preprocessing directive #bad\n"},
    {"Includes", "#include\n#include <a\n#include \"\"\n#include \"missing.idl\"\n#include <missing.idl>\n",
     "t.idl:1:1: error: #include expects \"FILENAME\" or <FILENAME>\n"
     "t.idl:2:1: error: #include expects \"FILENAME\" or <FILENAME>\n"
     "t.idl:3:1: error: empty file name in #include\n"
     "t.idl:4:1: error: include file 'missing.idl' not found\n"
     "t.idl:5:1: error: include file 'missing.idl' not found\n"},
    {"BackEndBlocks", "%{\n%}\n%{POACxx extra\n%}\n%}\n%{POACxx\nnever closed\n",
     "t.idl:1:1: error: back-end block without a back-end name after '%{'\n"
     "t.idl:3:10: error: unexpected text after back-end name 'POACxx'\n"
     "t.idl:5:1: error: '%}' without an opening '%{' line\n"
     "t.idl:6:1: error: unterminated back-end block '%{POACxx'\n"},
    {"StrayHash", "#define H #\nx \\\n# 5 \"evil.idl\"\n  H y\n",
     "t.idl:3:1: error: stray '#' outside a preprocessing directive\n"
     "t.idl:4:3: error: stray '#' outside a preprocessing directive\n"},
    {"NulByte", "interface A {};\nin\0terface B {};\n", "t.idl:2:3: error: file contains a NUL byte; IDL files are text\n"},
    {"ControlBytes", "\x01\x02\x03garbage", "t.idl:1:1: error: file contains binary data (byte 0x01); IDL files are text\n"},
};

class PreprocessorErrors : public testing::TestWithParam<ErrorCase> {};

TEST_P(PreprocessorErrors, Diagnostics)
{
    const ErrorCase& c = GetParam();
    // Inputs may hold NUL bytes: take the whole literal.
    std::string input(c.input);
    if (std::string(c.name) == "NulByte")
        input.assign("interface A {};\nin\0terface B {};\n", 33);
    PPRun r = preprocess_text(input);
    EXPECT_EQ(r.err, c.expected);
    const bool only_warnings = r.err.find(": error: ") == std::string::npos;
    EXPECT_EQ(r.ok, only_warnings);
}

INSTANTIATE_TEST_SUITE_P(Preprocessor, PreprocessorErrors, testing::ValuesIn(kErrorCases),
                         [](const testing::TestParamInfo<ErrorCase>& info) { return info.param.name; });

TEST(Preprocessor, BinaryFileIsReadAsEmpty)
{
    PPRun r = preprocess_text(std::string("a\n\0b\n", 5));
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.text, "# 1 \"t.idl\" 1\n");
}

TEST(Preprocessor, MissingMainFile)
{
    PPRun r = preprocess_file("/nonexistent/dir/x.idl");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.err, "/nonexistent/dir/x.idl:1:1: error: cannot open file '/nonexistent/dir/x.idl'\n");
}

// ---- Includes ----

class PreprocessorIncludes : public testing::Test {
protected:
    void SetUp() override { dir = yvtest::make_temp_dir("pp"); }
    void TearDown() override { std::filesystem::remove_all(dir); }
    void write(const std::string& name, const std::string& text) { yvtest::write_file(dir + "/" + name, text); }

    std::string dir;
};

TEST_F(PreprocessorIncludes, SearchOrderMarkersAndList)
{
    write("src/main.idl", "#include \"a.idl\"\n#include <a.idl>\n#include \"a.idl\"\n#include \"only_inc.idl\"\nend\n");
    write("src/a.idl", "in src\n#include \"b.idl\"\n");
    write("src/b.idl", "b next to a\n");
    write("inc/a.idl", "in inc\n");
    write("inc/only_inc.idl", "only in inc\n");
    write("inc2/only_inc.idl", "not this one\n");
    IDL_FrontendOptions options;
    options.include_dirs = {dir + "/inc/", dir + "/inc2"};
    PPRun r = preprocess_file(dir + "/src/main.idl", options);
    ASSERT_TRUE(r.ok) << r.err;
    const std::string s = dir + "/src/", i = dir + "/inc/";
    EXPECT_EQ(r.text, "# 1 \"" + s + "main.idl\" 1\n"
                      "# 1 \"" + s + "a.idl\" 1\nin src\n"
                      "# 1 \"" + s + "b.idl\" 1\nb next to a\n"
                      "# 3 \"" + s + "a.idl\" 2\n"
                      "# 2 \"" + s + "main.idl\" 2\n"
                      "# 1 \"" + i + "a.idl\" 1\nin inc\n"
                      "# 3 \"" + s + "main.idl\" 2\n"
                      "# 1 \"" + s + "a.idl\" 1\nin src\n"
                      "# 1 \"" + s + "b.idl\" 1\nb next to a\n"
                      "# 3 \"" + s + "a.idl\" 2\n"
                      "# 4 \"" + s + "main.idl\" 2\n"
                      "# 1 \"" + i + "only_inc.idl\" 1\nonly in inc\n"
                      "# 5 \"" + s + "main.idl\" 2\nend\n");
    ASSERT_EQ(r.includes.size(), 3u);
    EXPECT_EQ(r.includes[0].written, "\"a.idl\"");
    EXPECT_EQ(r.includes[0].flag, 0);
    EXPECT_EQ(r.includes[1].written, "<a.idl>");
    EXPECT_EQ(r.includes[1].flag, 1);
    EXPECT_EQ(r.includes[2].written, "\"only_inc.idl\"");
}

TEST_F(PreprocessorIncludes, TextInMemorySearchesIncludeDirsOnly)
{
    write("x.idl", "x\n");
    IDL_FrontendOptions options;
    PPRun r = preprocess_text("#include \"x.idl\"\n", options, dir + "/t.idl");
    EXPECT_FALSE(r.ok);
    options.include_dirs = {dir};
    r = preprocess_text("#include \"x.idl\"\n", options, dir + "/t.idl");
    EXPECT_TRUE(r.ok) << r.err;
}

TEST_F(PreprocessorIncludes, ComputedIncludes)
{
    write("inc/q.idl", "q\n");
    write("inc/a.idl", "a\n");
    IDL_FrontendOptions options;
    options.include_dirs = {dir + "/inc"};
    PPRun r = preprocess_text("#define Q \"q.idl\"\n#define A <a.idl>\n#include Q\n#include A\n", options);
    ASSERT_TRUE(r.ok) << r.err;
    ASSERT_EQ(r.includes.size(), 2u);
    EXPECT_EQ(r.includes[0].written, "\"q.idl\"");
    EXPECT_EQ(r.includes[0].flag, 0);
    EXPECT_EQ(r.includes[1].written, "<a.idl>");
    EXPECT_EQ(r.includes[1].flag, 1);
    EXPECT_NE(r.text.find("\nq\n"), std::string::npos) << r.text;
    EXPECT_NE(r.text.find("\na\n"), std::string::npos) << r.text;
}

TEST_F(PreprocessorIncludes, GuardedAndOnceFilesAreNotReadAgain)
{
    // A second inclusion of a file that would add nothing leaves no markers.
    write("g.idl", "// guarded\n#ifndef G_IDL\n#define G_IDL\ng\n#endif\n\n");
    write("h.idl", "#if !defined(H_IDL)\n#define H_IDL\nh\n#endif\n");
    write("o.idl", "#pragma once\no\n");
    write("u.idl", "#ifndef U_IDL\n#define U_IDL\n#endif\nunguarded tail\n");
    write("main.idl", "#include \"g.idl\"\n#include \"h.idl\"\n#include \"o.idl\"\n#include \"u.idl\"\n"
                      "#include \"g.idl\"\n#include \"h.idl\"\n#include \"./o.idl\"\n#include \"u.idl\"\n");
    PPRun r = preprocess_file(dir + "/main.idl");
    ASSERT_TRUE(r.ok) << r.err;
    const std::string m = dir + "/main.idl";
    const std::string tail = "# 5 \"" + m + "\" 2\n# 1 \"" + dir + "/u.idl\" 1\n\n\n\nunguarded tail\n# 9 \"" + m + "\" 2\n";
    ASSERT_GE(r.text.size(), tail.size());
    EXPECT_EQ(r.text.substr(r.text.size() - tail.size()), tail) << r.text;
}

TEST_F(PreprocessorIncludes, GuardedFilesIncludingEachOther)
{
    write("a.idl", "#ifndef A\n#define A\n#include \"b.idl\"\na\n#endif\n");
    write("b.idl", "#ifndef B\n#define B\n#include \"a.idl\"\nb\n#endif\n");
    PPRun r = preprocess_file(dir + "/a.idl");
    EXPECT_TRUE(r.ok) << r.err;
}

TEST_F(PreprocessorIncludes, CyclesAndDepthAreErrors)
{
    write("c1.idl", "#include \"c2.idl\"\n");
    write("c2.idl", "\n#include \"c1.idl\"\n");
    PPRun r = preprocess_file(dir + "/c1.idl");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.err, dir + "/c2.idl:2:1: error: #include of '" + dir + "/c1.idl' forms a cycle: the file is already being read\n");

    for (int k = 1; k <= 250; ++k)
        write("d" + std::to_string(k) + ".idl", "#include \"d" + std::to_string(k + 1) + ".idl\"\n");
    r = preprocess_file(dir + "/d1.idl");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.err, dir + "/d200.idl:1:1: error: #include nests more than 200 files deep (-fmax-include-depth=N raises the limit)\n");
}

TEST_F(PreprocessorIncludes, BinaryIncludeIsReportedOnce)
{
    yvtest::write_file(dir + "/bin.idl", std::string("ok\n\x7f\x45\x4c\x46\x02\x01", 9));
    write("main.idl", "#include \"bin.idl\"\n#include \"bin.idl\"\nafter\n");
    PPRun r = preprocess_file(dir + "/main.idl");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.err, dir + "/bin.idl:2:5: error: file contains binary data (byte 0x02); IDL files are text\n");
    EXPECT_NE(r.text.find("\nafter\n"), std::string::npos);
}

// ---- Hostile and large input: ends with a diagnostic or a whole result ----
// (how fast is the benchmark's business; a hang here is caught by the test's
// time limit)

TEST(PreprocessorLimits, DeepNestingIsCut)
{
    PPRun r = preprocess_text("#define F(x) x\n" + yvtest::repeat("F(", 1000) + "1" + std::string(1000, ')') + "\n");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.err, "t.idl:2:1: error: macro arguments nest more than 200 levels deep (-fmax-macro-arg-depth=N raises the limit)\n");

    r = preprocess_text("#if " + std::string(100000, '(') + "1\n#endif\n");
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.err, "t.idl:1:261: error: #if expression nests more than 256 levels deep (-fmax-if-depth=N raises the limit)\n");

    r = preprocess_text("#if " + std::string(100000, '!') + "1 == 1\nyes\n#endif\n");
    EXPECT_TRUE(r.ok) << r.err;
}

TEST(PreprocessorLimits, ErrorFloodStops)
{
    PPRun r = preprocess_text(yvtest::repeat("#bogus\n", 5000));
    EXPECT_FALSE(r.ok);
    EXPECT_NE(r.err.find("t.idl:200:2: error: too many errors; preprocessing stops\n"), std::string::npos);
    EXPECT_EQ(r.err.find("t.idl:201:"), std::string::npos);
}

TEST(PreprocessorLimits, LargeInputsArePreprocessedWhole)
{
    // A 10 MB file, a 1 MB identifier, a 1 MB string and a 1 MB comment.
    std::string big;
    big.reserve(11u << 20);
    while (big.size() < (10u << 20))
        big += "  interface I { void op(in long a, out string b); }; // comment\n";
    const std::string huge_name(1u << 20, 'x');
    const std::string inputs[] = {big, "const long " + huge_name + " = 1;\n",
                                  "const string s = \"" + std::string(1u << 20, 's') + "\";\n",
                                  "/*" + std::string(1u << 20, '*') + "*/ x\n"};
    for (const std::string& input : inputs) {
        PPRun r = preprocess_text(input);
        EXPECT_TRUE(r.ok) << r.err.substr(0, 200);
        EXPECT_GE(r.text.size(), 1u << 20);
    }
}

TEST(PreprocessorLimits, ThirtyThousandLinesOfMacroUse)
{
    PPRun r = preprocess_text("#define SEQ(T) sequence<T>\n#define MAX 42\n" +
                              yvtest::numbered("module M@ {  // module\n  /* comment */\n  typedef SEQ(long) S@;\n"
                                               "  const long K@ = MAX * @;\n"
                                               "  interface I@ { void op(in string<MAX> s, out S@ r); };\n};\n",
                                               0, 5000));
    ASSERT_TRUE(r.ok) << r.err;
    EXPECT_NE(r.text.find("typedef sequence<long> S4999;"), std::string::npos);
}

} // namespace
