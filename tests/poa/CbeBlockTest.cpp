// Back-end blocks in the skeleton header: the editing of their text, the
// switches they apply, and where their text lands.
#include "AST_CBE_Specific.h"
#include "GEN_POACxx.h"
#include "PoaTestSupport.h"
#include "VIS_POA_HH.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>

namespace {

struct BlockCase {
    const char* name;
    const char* backend;
    const char* text;
    const char* written;     // what the header receives
    long tie = 0;            // settings after the block
    long coloc = 0;
    int hash_max = -1;
    long ami = 1;            // AMI callbacks are on before each block
};

std::ostream& operator<<(std::ostream& os, const BlockCase& c) { return os << c.name; }

class BlockText : public testing::TestWithParam<BlockCase> {};

TEST_P(BlockText, IsEditedAndApplied)
{
    const BlockCase& c = GetParam();
    GEN_POACxx gen;
    gen.set_options("-xAMICallbacks");
    std::ostringstream out;
    AST_CBE_Specific block(c.backend, c.text);
    {
        VIS_POA_HH visitor(out, 2, nullptr, &gen);
        testing::internal::CaptureStderr();
        block.accept(&visitor);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    }
    EXPECT_EQ(out.str(), c.written);
    EXPECT_EQ(gen.tie_on(), c.tie);
    EXPECT_EQ(gen.coloc_poa_on(), c.coloc);
    EXPECT_EQ(gen.hash_max(), c.hash_max);
    EXPECT_EQ(gen.ami_callbacks_on(), c.ami);
}

const BlockCase BLOCK_CASES[] = {
    {"plain_text_unindented", "POACxx", "int x;\n  int y;\n", "int x;\n  int y;\n"},
    {"comment_joins_lines", "POACxx", "a # comment\nb\n", "a b\n"},
    {"comment_without_line_end", "POACxx", "a\nb # to the end", "a\nb "},
    {"only_comments_writes_nothing", "POACxx", "# one\n#two\n", ""},
    {"hash_lines_are_comments", "POACxx", "#define X 1\n#pragma once\n#include <gone.h>\ntext\n", "text\n"},
    {"include", "POACxx", "@include <x.h>\n", "#include <x.h>\n"},
    {"include_after_blanks_and_tabs", "POACxx", "@ \t include \"y.h\"\n", "#include \"y.h\"\n"},
    {"include_in_comment_dropped", "POACxx", "# @include <a.h>\n@include <b.h>\n", "#include <b.h>\n"},
    {"two_includes", "POACxx", "@include <a.h>\n@include <b.h>\n", "#include <a.h>\n#include <b.h>\n"},
    {"at_closed_up_elsewhere", "POACxx", "a @ b\ne@mail\n", "a @b\ne@mail\n"},
    {"switch_minus_and_plus", "POACxx", "@switch -xTIE +xAMICallbacks\nafter\n", "\nafter\n", 1, 0, -1, 0},
    {"switch_after_tab_other_words_ignored", "POACxx", "@\tswitch\t-p3 other xColocPOA -xColocPOA\n", "\n", 0, 1,
     3, 1},
    {"several_words_in_one", "POACxx", "@switch -xTIE:-p5\n", "\n", 1, 0, 5, 1},
    {"switches_on_two_lines", "POACxx", "@switch -xTIE\n@switch -p5\n", "\n\n", 1, 0, 5, 1},
    {"switch_without_line_end", "POACxx", "keep\n@switch -xTIE", "keep\n", 1, 0, -1, 1},
    {"switch_becomes_empty", "POACxx", "@switch -p2", "", 0, 0, 2, 1},
    {"switch_mid_line", "POACxx", "x @switch -p2\ny\n", "x \ny\n", 0, 0, 2, 1},
    {"other_backend", "Cxx", "@switch -xTIE\ntext\n", ""},
    {"backend_name_case_matters", "poacxx", "@switch -xTIE\ntext\n", ""},
    {"empty_block", "POACxx", "", ""},
};

INSTANTIATE_TEST_SUITE_P(CbeBlock, BlockText, testing::ValuesIn(BLOCK_CASES),
                         [](const testing::TestParamInfo<BlockCase>& info) { return info.param.name; });

TEST(CbeBlock, FileScopeBlockLandsBetweenDeclarations)
{
    poatest::PoaRun run = poatest::run_poa("interface A { };\n%{POACxx\n// between\n%}\ninterface B { };\n", nullptr);
    EXPECT_EQ(run.err, "");
    std::size_t a = run.hh.find("class POA_A");
    std::size_t text = run.hh.find("// between\n");
    std::size_t b = run.hh.find("class POA_B");
    ASSERT_NE(text, std::string::npos) << run.hh;
    EXPECT_LT(a, text);
    EXPECT_LT(text, b);
}

// A block inside a module is met again by the TIE pass; a block at file
// scope is not.
TEST(CbeBlock, ModuleBlockIsCopiedAgainByTiePass)
{
    poatest::PoaRun run = poatest::run_poa(
        "%{POACxx\n// outer\n%}\nmodule M {\n%{POACxx\n// inner\n%}\n    interface I { };\n};\n", "-xTIE");
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(poatest::count(run.hh, "// outer\n"), 1u);
    EXPECT_EQ(poatest::count(run.hh, "// inner\n"), 2u);
    EXPECT_LT(run.hh.rfind("// inner\n"), run.hh.find("template<"));
}

// Switches apply to what is written after the block.
TEST(CbeBlock, SwitchChangesLaterDeclarationsOnly)
{
    poatest::PoaRun run = poatest::run_poa(
        "interface A { };\n%{POACxx\n@switch -xRTTI -xTIE\n%}\ninterface B { };\n", nullptr);
    EXPECT_EQ(run.err, "");
    std::size_t b = run.hh.find("class POA_B");
    ASSERT_NE(b, std::string::npos);
    std::size_t narrow_tag = run.hh.find("static char _narrow_tag;");
    EXPECT_LT(narrow_tag, b);
    EXPECT_EQ(run.hh.find("static char _narrow_tag;", b), std::string::npos);
    // The includes were written before the block switched TIE on.
    EXPECT_NE(run.hh.find("#include <omg/PortableServer.hh>\n"), std::string::npos);
    EXPECT_NE(run.hh.find("POA_B_tie"), std::string::npos);
}

} // namespace
