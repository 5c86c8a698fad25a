// Malformed input: each case must be rejected with a diagnostic at the
// right place, never a crash or a hang.
#include "FrontendTestSupport.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

struct BadInput {
    const char* name;
    std::string text;
    // "file:line" the diagnostic must begin with, and a fragment of it.
    const char* where;
    const char* fragment;
    std::vector<std::pair<std::string, std::string>> files = {};
};

void PrintTo(const BadInput& c, std::ostream* os) { *os << c.name; }

using yvtest::repeat;

std::vector<BadInput> cases()
{
    return {
        // Syntax, one per construct.
        {"module_brace", "module M ;", "main.idl:1", "expected '{' before ';'"},
        {"module_unclosed", "module M {\n  interface I {};\n", "main.idl:3", "expected '}' before end of file"},
        {"interface_bases", "interface I : {};", "main.idl:1", "expected a name before '{'"},
        {"interface_semicolon", "interface I {}\ninterface J {};", "main.idl:2", "expected ';' before 'interface'"},
        {"operation_paren", "interface I {\n  void f(in long a;\n};", "main.idl:2", "expected ')' before ';'"},
        {"argument_direction", "interface I { void f(long a); };", "main.idl:1",
         "expected 'in', 'out' or 'inout' before 'long'"},
        {"attribute_type", "interface I {\n  attribute ;\n};", "main.idl:2", "expected a type before ';'"},
        {"raises_paren", "exception E {};\ninterface I { void f() raises E; };", "main.idl:2", "expected '(' before 'E'"},
        {"struct_member", "struct S {\n  long a\n  long b;\n};", "main.idl:3", "expected ';' before 'long'"},
        {"union_switch", "union U { case 1: long a; };", "main.idl:1", "expected 'switch' before '{'"},
        {"union_case_colon", "union U switch (long) {\n  case 1 long a;\n};", "main.idl:2", "expected ':' before 'long'"},
        {"enum_trailing_comma", "enum E { a, };", "main.idl:1", "expected an enumerator before '}'"},
        {"typedef_declarator", "typedef long;", "main.idl:1", "expected a declarator name before ';'"},
        {"const_assign", "const long X 5;", "main.idl:1", "expected '=' before '5'"},
        {"const_expression", "const long X = 1 + ;", "main.idl:1", "expected an expression before ';'"},
        {"exception_brace", "exception E;", "main.idl:1", "expected '{' before ';'"},
        {"sequence_close", "typedef sequence<long Seq;", "main.idl:1", "expected '>' before 'Seq'"},
        {"state_member_type", "valuetype V {\n  public ;\n};", "main.idl:2", "expected a type before ';'"},
        {"factory_in", "valuetype V { factory f(long a); };", "main.idl:1", "expected 'in' before 'long'"},
        {"native_name", "native ;", "main.idl:1", "expected a type name before ';'"},
        {"typeid_string", "interface I {};\ntypeid I;", "main.idl:2", "expected a string literal before ';'"},
        {"getraises_paren", "exception E {};\ninterface I { attribute long a getraises E; };", "main.idl:2",
         "expected '(' before 'E'"},
        {"value_bases", "valuetype V : {};", "main.idl:1", "expected a name before '{'"},
        {"context_string", "interface I { void f() context (USER); };", "main.idl:1",
         "expected a string literal before 'USER'"},
        {"fixed_params", "typedef fixed<5> F;", "main.idl:1", "expected ',' before '>'"},
        {"stray_brace", "module M {};\n};", "main.idl:2", "expected a definition before '}'"},
        {"keyword_as_name", "struct module { long a; };", "main.idl:1", "expected a structure name before 'module'"},
        {"operation_at_file_scope", "void f();", "main.idl:1", "expected a definition before 'void'"},
        {"component", "component C {};", "main.idl:1", "components are not supported"},
        {"keyword_case", "typedef long Interface;", "main.idl:1", "'Interface' collides with the keyword 'interface'"},
        // Lexical.
        {"bad_escape", "const char c = '\\q';", "main.idl:1", "invalid escape sequence '\\q'"},
        {"narrow_unicode_escape", "const char c = '\\u0041';", "main.idl:1", "only in wide characters"},
        {"empty_char", "const char c = '';", "main.idl:1", "exactly one character"},
        {"bad_number", "const long x = 12ab;", "main.idl:1", "invalid number '12ab'"},
        {"bad_octal", "const long x = 09;", "main.idl:1", "invalid number '09'"},
        {"invalid_character", "module M {\n  @\n};", "main.idl:2", "invalid character '@'"},
        {"block_in_interface", "interface I {\n%{POACxx\nx\n%}\n};", "main.idl:2", "allowed only at file scope"},
        // Preprocessing: its errors fail the parse (the preprocessor's own
        // tests take each of them).
        {"missing_include", "#include \"nothere.idl\"\n", "main.idl:1", "include file 'nothere.idl' not found"},
        {"recursive_macro", "#define X X + 1\nconst long y = X;", "main.idl:2", "'X' is not defined"},
        // Names.
        {"undefined", "interface I {\n  Foo f();\n};", "main.idl:2", "'Foo' is not defined"},
        {"undefined_member", "module M {};\ntypedef M::X T;", "main.idl:2", "'M::X' is not defined"},
        {"not_a_scope", "typedef long L;\ntypedef L::X T;", "main.idl:2", "'L' has no members"},
        {"ambiguous", "interface A { typedef long T; };\ninterface B { typedef short T; };\n"
                      "interface C : A, B {\n  T f();\n};",
         "main.idl:4", "'T' is ambiguous: it is inherited from 'A::T' and from 'B::T'"},
        {"redefinition", "typedef long T;\ntypedef short T;", "main.idl:2", "'T' is already defined in this scope"},
        {"redefinition_case", "typedef long T;\ntypedef short t;", "main.idl:2", "'t' clashes with 'T'"},
        {"reference_case", "typedef long Count;\ntypedef count C2;", "main.idl:2", "'count' must be written as 'Count'"},
        {"argument_twice", "interface I { void f(in long a, in long A); };", "main.idl:1", "'A' clashes with 'a'"},
        {"kind_mismatch", "interface X;\nstruct X;", "main.idl:2", "'X' was declared before as an interface"},
        // Inheritance.
        {"member_in_base", "interface A { void f(); };\ninterface B : A {\n  void f();\n};", "main.idl:3",
         "'f' is already a member of base 'A'"},
        {"attribute_in_base", "interface A { attribute long f; };\ninterface B : A {\n  void f();\n};", "main.idl:3",
         "'f' is already a member of base 'A'"},
        {"diamond_clash", "interface A { void f(); };\ninterface B { void f(); };\ninterface C : A, B {};",
         "main.idl:3", "'f' is inherited from both 'A' and 'B'"},
        {"inherit_forward", "interface F;\ninterface I : F {};", "main.idl:2",
         "'I' cannot inherit from 'F', which is declared but not yet defined"},
        {"inherit_non_interface", "struct S { long a; };\ninterface I : S {};", "main.idl:2", "'S' is not an interface"},
        {"inherit_local", "local interface L {};\ninterface I : L {};", "main.idl:2",
         "unconstrained interface 'I' cannot inherit from local interface 'L'"},
        {"abstract_state", "abstract valuetype V {\n  public long x;\n};", "main.idl:2",
         "abstract value type 'V' cannot have state members"},
        // Types.
        {"forward_by_value", "struct S;\nstruct T {\n  S s;\n};\nstruct S { long a; };", "main.idl:3",
         "'S' is not completely defined here"},
        {"never_defined", "module M {\n  union U;\n  typedef sequence<U> Us;\n};", "main.idl:2",
         "'U' is forward-declared but never defined"},
        {"recursive_by_value", "struct S {\n  S next;\n};", "main.idl:2", "'S' is not completely defined here"},
        {"union_by_value", "union U;\ntypedef U Arr[2];\nstruct T { Arr a; };", "main.idl:3",
         "'U' is not completely defined here"},
        {"constant_as_type", "const long K = 1;\ntypedef K T;", "main.idl:2", "'K' is not a type"},
        {"exception_as_type", "exception E {};\nstruct S { E e; };", "main.idl:2", "exception 'E' cannot be used as a type"},
        {"raises_non_exception", "struct S { long a; };\ninterface I { void f() raises (S); };", "main.idl:2",
         "'S' is not an exception"},
        {"bound_zero", "typedef sequence<long, 0> S;", "main.idl:1", "positive integer, not 0"},
        {"bound_negative", "typedef string<-3> S;", "main.idl:1", "positive integer, not -3"},
        {"fixed_digits", "typedef fixed<40,2> F;", "main.idl:1", "fixed<40,2>"},
        {"value_box_of_value", "valuetype V { public long x; };\nvaluetype B V;", "main.idl:2",
         "a value box cannot box the value type 'V'"},
        // Operations.
        {"oneway_result", "interface I {\n  oneway long f();\n};", "main.idl:2", "oneway operation 'f' must return void"},
        {"oneway_out", "interface I {\n  oneway void f(out long a);\n};", "main.idl:2", "'in' arguments only"},
        {"oneway_raises", "exception E {};\ninterface I {\n  oneway void f() raises (E);\n};", "main.idl:3",
         "cannot raise exceptions"},
        // Constants.
        {"short_range", "const short x = 70000;", "main.idl:1", "value 70000 does not fit in type short"},
        {"unsigned_negative", "const unsigned long u = -1;", "main.idl:1", "value -1 does not fit in type unsigned long"},
        {"octet_range", "const octet o = 256;", "main.idl:1", "value 256 does not fit in type octet"},
        {"string_bound", "const string<2> s = \"abc\";", "main.idl:1", "does not fit in type string<2>"},
        {"const_type_mismatch", "const long x = \"s\";", "main.idl:1", "a string value cannot be used as long"},
        {"division_by_zero", "const long x = 1 / 0;", "main.idl:1", "division by zero"},
        {"overflow", "const unsigned long long x = 18446744073709551615 + 1;", "main.idl:1", "overflows"},
        {"not_a_constant", "typedef long T;\nconst long x = T;", "main.idl:2", "'T' is not a constant or enumerator"},
        {"bad_const_type", "struct S { long a; };\nconst S s = 1;", "main.idl:2", "'S' cannot be the type of a constant"},
        {"operator_on_strings", "const string s = \"a\" * 2;", "main.idl:1", "operator '*' cannot be applied"},
        // Unions.
        {"label_type", "union U switch (long) {\n  case 'a': long x;\n};", "main.idl:2",
         "a character value cannot be used as long"},
        {"label_repeated", "union U switch (short) {\n  case 1: long a;\n  case 1: long b;\n};", "main.idl:3",
         "case label 1 is used twice"},
        {"label_foreign_enum", "enum A { a1 };\nenum B { b1 };\nunion U switch (A) {\n  case b1: long x;\n};",
         "main.idl:4", "'b1' is not an enumerator of 'A'"},
        {"default_twice", "union U switch (long) {\n  default: long a;\n  default: long b;\n};", "main.idl:3",
         "only one default label"},
        {"discriminator_type", "union U switch (float) { case 1: long a; };", "main.idl:1",
         "'float' cannot be a union discriminator type"},
        // Repository ids.
        {"pragma_id_undefined", "#pragma ID Nope \"IDL:x:1.0\"\n", "main.idl:1", "'Nope' is not defined"},
        {"typeid_twice", "interface I {};\ntypeid I \"IDL:a:1.0\";\ntypeid I \"IDL:b:1.0\";", "main.idl:3",
         "already set to 'IDL:a:1.0'"},
        {"bad_version", "interface I {};\n#pragma version I abc\n", "main.idl:2", "malformed version 'abc'"},
        // Rules of the language that real-world IDL breaks.
        {"name_of_module", "module M {\n  typedef short M;\n};", "main.idl:2:17",
         "'M' cannot be declared inside 'M', which has the same name"},
        {"name_of_interface", "interface I {\n  void i();\n};", "main.idl:2:8",
         "'i' cannot be declared inside 'I', which has the same name"},
        {"name_of_struct", "struct S {\n  long s;\n};", "main.idl:2:8", "'s' cannot be declared inside 'S'"},
        {"name_of_exception", "exception E {\n  long e;\n};", "main.idl:2:8", "'e' cannot be declared inside 'E'"},
        {"version_twice", "interface I {};\n#pragma version I 1.1\n#pragma version I 1.2\n", "main.idl:3:1",
         "the version of 'I' is already set to '1.1'"},
        {"default_over_boolean",
         "union U switch (boolean) {\n  case TRUE: long a;\n  case FALSE: short b;\n  default: char c;\n};",
         "main.idl:4:3", "a default label is not allowed: the other labels cover every value of 'boolean'"},
        {"default_over_enum", "enum E { e1, e2 };\nunion U switch (E) {\n  case e1: case e2: long a;\n  default: char c;\n};",
         "main.idl:4:3", "the other labels cover every value of 'E'"},
        {"introduced_then_declared", "module M {\n  typedef long T;\n  interface I {\n    void f(in T t);\n    typedef string T;\n  };\n};",
         "main.idl:5:20", "'T' cannot be declared in this scope, which already uses the name for 'M::T'"},
        {"introduced_in_struct", "typedef long T;\nstruct S {\n  T a;\n  struct t { long x; } b;\n};", "main.idl:4:10",
         "'t' cannot be declared in this scope, which already uses the name for 'T'"},
        {"local_argument", "local interface L {};\ninterface I {\n  void f(in L l);\n};", "main.idl:3:13",
         "unconstrained interface 'I' cannot use the local type 'L' for argument 'l' of 'f'"},
        {"local_result_through_typedef", "local interface L {};\ntypedef sequence<L> LS;\ninterface I {\n  LS g();\n};",
         "main.idl:4:3", "cannot use the local type 'L' for the result of 'g'"},
        {"local_attribute_in_struct", "local interface L {};\nstruct S { L l; };\ninterface I {\n  attribute S a;\n};",
         "main.idl:4:13", "cannot use the local type 'L' for attribute 'a'"},
        {"integer_as_float", "const double D = 2;", "main.idl:1:18",
         "an integer value cannot be used as double; write a floating-point literal"},
        {"integer_constant_as_float", "const long L = 3;\nconst float F = L;", "main.idl:2:17",
         "an integer value cannot be used as float"},
        {"forward_under_other_prefix", "#pragma prefix \"a\"\ninterface I;\n#pragma prefix \"b\"\ninterface I {};",
         "main.idl:4:11", "'I' is defined under the prefix 'b' but was forward-declared under 'a'"},
        // Hostile input.
        {"high_bytes", "module M {\n\xff\xfe\xfd\xfc };", "main.idl:2", "invalid character 0xff"},
        {"deep_modules", repeat("module a {\nmodule b {\n", 5000), "main.idl:257", "declarations nest more than 256 levels deep"},
        {"deep_structs", repeat("struct s { struct t { ", 5000), "main.idl:1", "nest more than 256 levels"},
        {"deep_parentheses", "const long x = " + repeat("(", 10000) + "1" + repeat(")", 10000) + ";", "main.idl:1",
         "nest more than 256 levels"},
        {"deep_unary", "const long x = " + repeat("- ", 10000) + "1;", "main.idl:1", "nest more than 256 levels"},
        {"deep_sequences", "typedef " + repeat("sequence<", 10000) + "long" + repeat(">", 10000) + " S;", "main.idl:1",
         "nest more than 256 levels"},
        {"long_undefined_name", "typedef " + std::string(1 << 20, 'x') + " T;", "main.idl:1", "xxxx...' is not defined"},
    };
}

class Diagnostics : public testing::TestWithParam<BadInput> {};

TEST_P(Diagnostics, RejectedWithMessageAtItsPlace)
{
    const BadInput& c = GetParam();
    fetest::Parsed p = fetest::parse(c.text, "main.idl", c.files);
    EXPECT_FALSE(p.data);
    EXPECT_GT(p.errors, 0);
    std::istringstream lines(p.err);
    std::string line, match;
    while (std::getline(lines, line))
        if (line.find(": error: ") != std::string::npos && line.find(c.fragment) != std::string::npos) {
            match = line;
            break;
        }
    ASSERT_FALSE(match.empty()) << "no error with '" << c.fragment << "' in:\n" << p.err.substr(0, 2000);
    EXPECT_EQ(match.rfind(std::string(c.where) + (*c.where ? ":" : ""), 0), 0u) << match;
    // Every message is one sane line.
    EXPECT_LT(match.size(), 400u);
}

INSTANTIATE_TEST_SUITE_P(Table, Diagnostics, testing::ValuesIn(cases()),
                         [](const testing::TestParamInfo<BadInput>& info) { return std::string(info.param.name); });

TEST(Recovery, SeveralErrorsAreReportedInOneRun)
{
    fetest::Parsed p = fetest::parse("interface I {\n  Foo a();\n  void b(in long x;\n  Bar c();\n};\nstruct S { Baz z; };\n");
    EXPECT_FALSE(p.data);
    EXPECT_EQ(p.errors, 4) << p.err;
    for (const char* frag : {"main.idl:2:3: error: 'Foo'", "main.idl:3:19: error: syntax error",
                             "main.idl:4:3: error: 'Bar'", "main.idl:6:12: error: 'Baz'"})
        EXPECT_NE(p.err.find(frag), std::string::npos) << frag << " in\n" << p.err;
}

TEST(Recovery, ErrorFloodStops)
{
    fetest::Parsed p = fetest::parse(yvtest::numbered("typedef Undefined@ T@;\n", 0, 5000));
    EXPECT_FALSE(p.data);
    EXPECT_LE(p.errors, 110);
    EXPECT_NE(p.err.find("too many errors"), std::string::npos);
}

TEST(Limits, HugeIdentifierIsAccepted)
{
    std::string name(1 << 20, 'n');
    fetest::Parsed p = fetest::parse("module M { typedef long " + name + "; typedef " + name + " Other; };");
    ASSERT_TRUE(p.data) << p.err.substr(0, 500);
    EXPECT_EQ(fetest::find(*p.data, "M::" + name)->local_name()->str().size(), name.size());
}

TEST(Limits, LongInheritanceChainsAndLattices)
{
    // A chain thousands deep (no recursion along it), then a lattice where
    // every interface has two bases that share all their ancestors.
    const std::string text = "struct R { long a; };\ninterface C0 { R op0(); };\n" +
                             yvtest::numbered("interface C@ : C$ { R op@(in R r); };\n", 1, 3000) +
                             "interface L0a { void a0(); }; interface L0b { void b0(); };\n" +
                             yvtest::numbered("interface L@a : L$a, L$b { R a@(); };\n"
                                              "interface L@b : L$a, L$b { R b@(); };\n",
                                              1, 40) +
                             "interface Bottom : C2999, L39a { void op0(); };\n";
    IDL_Limits limits;
    limits.inherited = 100000000;  // the chain alone inherits 13.5 million
    fetest::Parsed p = fetest::parse_limited(text, limits);
    EXPECT_FALSE(p.data);
    EXPECT_EQ(p.errors, 1) << p.err.substr(0, 1000);
    EXPECT_NE(p.err.find("'op0' is already a member of base 'C0'"), std::string::npos) << p.err.substr(0, 1000);
}

TEST(Limits, NestingUpToTheLimitIsAccepted)
{
    int depth = 200;
    std::string text = repeat("module a { module b { ", depth / 2) + "const long k = " + repeat("(", 40) + "1" +
                       repeat(")", 40) + ";" + repeat(" };", depth);
    fetest::Parsed p = fetest::parse(text);
    EXPECT_TRUE(p.data) << p.err.substr(0, 500);
}

} // namespace
