// Rules met in IDL as other projects write it: what peers accept must parse
// to the right tree, what the language forbids must be a located error.
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
    };
}

class AcceptedAsPeersDo : public testing::TestWithParam<Accepted> {};

TEST_P(AcceptedAsPeersDo, ParsesToTheRightTree)
{
    const Accepted& c = GetParam();
    fetest::Parsed p = fetest::parse(c.text, "main.idl", c.files);
    ASSERT_TRUE(p.data) << p.err;
    EXPECT_EQ(p.errors, 0);
    const std::string tree = fetest::dump(*p.data);
    for (const std::string& line : c.lines)
        EXPECT_NE(tree.find(line), std::string::npos) << "no '" << line << "' in:\n" << tree;
}

INSTANTIATE_TEST_SUITE_P(Table, AcceptedAsPeersDo, testing::ValuesIn(accepted()),
                         [](const testing::TestParamInfo<Accepted>& i) { return std::string(i.param.name); });

} // namespace
