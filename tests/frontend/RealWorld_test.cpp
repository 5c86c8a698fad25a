// Rules met in IDL as other projects write it: what peers accept must parse
// to the right tree (what the language forbids is in the diagnostics table).
#include "FrontendTestSupport.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace {

struct Accepted {
    const char* name;
    std::string text;
    // Lines the dump of the tree must hold.
    std::vector<std::string> lines;
    std::vector<std::pair<std::string, std::string>> files = {};
    // The warning expected on the error stream; none when empty.
    std::string warning = {};
};

void PrintTo(const Accepted& c, std::ostream* os) { *os << c.name; }

std::vector<Accepted> accepted()
{
    return {
        {"nul_char_constant", "const char C = '\\0';", {"const char C = char(0)"}},
        {"nul_char_label",
         "union U switch (char) {\n  case '\\0': long a;\n  case 'x': short b;\n};",
         {"branch case char(0): long a"}},
        {"interface_base_alias", "interface A {};\ntypedef A AliasA;\ninterface B : AliasA {};", {"interface B : A"}},
        {"value_base_alias",
         "valuetype V { public long x; };\ntypedef V AliasV;\nvaluetype W : AliasV { public long y; };\n"
         "interface I {};\ntypedef I AliasI;\nvaluetype X supports AliasI {};",
         {"value W : V", "value X supports I"}},
        {"self_include_inside_guard", "#include \"self.idl\"\n",
         {"typedef long T"},
         {{"self.idl", "#ifndef SELF_IDL\n#define SELF_IDL\ntypedef long T;\n#include \"self.idl\"\n#endif\n"}}},
        {"self_include_after_pragma",
         "#include \"self.idl\"\n",
         {"typedef long T"},
         {{"self.idl", "#pragma prefix \"acme.com\"\n#ifndef SELF_IDL\n#define SELF_IDL\n#include \"self.idl\"\n"
                       "typedef long T;\n#endif\n"}}},
        // Next to the rules that reject: a member may take a name its scope
        // uses; a scope may declare a name before it uses it; local types
        // belong to local interfaces; floating-point expressions may mix in
        // integers; one prefix for a forward declaration and its definition.
        {"member_named_as_used_type", "struct Foo { long x; };\nstruct S {\n  Foo foo;\n};", {"field Foo foo"}},
        {"declared_before_use", "typedef long T;\ninterface I {\n  typedef string T;\n  void f(in T t);\n};",
         {"in I::T t"}},
        {"local_type_in_local_interface", "local interface L {};\nlocal interface K {\n  L g(in L l);\n  attribute L a;\n};",
         {"attribute L a"}},
        {"float_expression_with_integer", "const double D = 1 / 2.0;", {"const double D = 0.5"}},
        {"forward_under_same_prefix", "#pragma prefix \"a\"\ninterface I;\ninterface I {};", {"IDL:a/I:1.0"}},
        // An interface may be defined by another IDL file than the one that
        // declares it forward; the front end says so, as peers do.
        {"interface_defined_elsewhere",
         "module M {\n  interface R;\n  typedef sequence<R> Rs;\n  interface U { R get(in Rs all); };\n};",
         {"interface U"},
         {},
         "main.idl:2:1: warning: interface 'R' is forward-declared but not defined in the files read"},
        {"interface_defined_after_included_forward", "#include \"fwd.idl\"\ninterface R {};", {"interface R"},
         {{"fwd.idl", "interface R;\n"}}},
    };
}

class AcceptedAsPeersDo : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedAsPeersDo, ParsesToTheRightTree)
{
    const Accepted& c = GetParam();
    fetest::Parsed p = fetest::parse(c.text, "main.idl", c.files);
    ASSERT_TRUE(p.data) << p.err;
    EXPECT_EQ(p.errors, 0);
    if (c.warning.empty())
        EXPECT_EQ(p.err.find("warning"), std::string::npos) << p.err;
    else
        EXPECT_NE(p.err.find(c.warning), std::string::npos) << p.err;
    const std::string tree = fetest::dump(*p.data);
    for (const std::string& line : c.lines)
        EXPECT_NE(tree.find(line), std::string::npos) << "no '" << line << "' in:\n" << tree;
}

INSTANTIATE_TEST_SUITE_P(Table, AcceptedAsPeersDo, testing::ValuesIn(accepted()),
                         [](const testing::TestParamInfo<Accepted>& i) { return std::string(i.param.name); });

} // namespace
