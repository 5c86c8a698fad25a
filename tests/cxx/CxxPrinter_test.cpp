#include "CxxPrinter.h"
#include "UTL_Indent.h"

#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct PrintCase {
    const char* name;
    int level;
    bool line_start;
    const char* text;
    const char* expected;
};

TEST(CxxPrinter, PrintsLinesAtTheCurrentLevel)
{
    const std::vector<PrintCase> cases = {
        {"one line", 1, true, "int a;\n", "    int a;\n"},
        {"empty lines stay empty", 1, true, "a;\n\nb;\n", "    a;\n\n    b;\n"},
        {"values", 0, true, "$t$ $n$ = $n$_init;\n", "long x = x_init;\n"},
        {"dollar", 0, true, "a$$b\n", "a$b\n"},
        {"continues a line", 2, false, "tail;\n", "tail;\n"},
        {"pieces of one line", 1, true, "a", "    a"},
        {"value at line start", 1, true, "$t$;\n", "    long;\n"},
    };
    for (const PrintCase& c : cases) {
        std::ostringstream os;
        UTL_Indent indent(c.level);
        CxxPrinter p(os, indent, c.line_start);
        p.print(c.text, {{"t", "long"}, {"n", "x"}});
        EXPECT_EQ(os.str(), c.expected) << c.name;
    }
}

TEST(CxxPrinter, BlocksListsAndMembers)
{
    std::ostringstream os;
    UTL_Indent indent(0);
    CxxPrinter p(os, indent);
    {
        auto b = p.block("struct $n$\n{\n", "};\n", {{"n", "S"}});
        p.member("virtual void", "f", {"long a", "char* b"}, " = 0;\n");
        p.member("long", "g", {}, ";\n");
        p.print("int v[] = {");
        const std::vector<int> items = {1, 2, 3};
        p.list(items, ", ", [&](int i) { p.print(std::to_string(i)); });
        p.print("};\n");
    }
    EXPECT_EQ(indent.get_indent(), 0);
    EXPECT_EQ(os.str(), "struct S\n"
                        "{\n"
                        "    virtual void\n"
                        "    f(\n"
                        "        long a,\n"
                        "        char* b\n"
                        "    ) = 0;\n"
                        "    long\n"
                        "    g();\n"
                        "    int v[] = {1, 2, 3};\n"
                        "};\n");
}

// The fixed shapes: unindented pieces with values, a line holding only the
// indentation, a line that another writer began, numbers as values.
TEST(CxxPrinter, RawTextLoneIndentationAndContinuedLines)
{
    std::ostringstream os;
    UTL_Indent indent(1);
    CxxPrinter p(os, indent);
    p.raw("void\n$f$(\n", {{"f", "f"}});
    p.indentation();
    p.print("\n");
    p.raw("else ");
    p.indentation();
    p.print("x;\n");
    os << "    other";
    p.continue_line();
    p.print(" = $n$, 0x$h$;\n", {{"n", CxxPrinter::Num(-42)}, {"h", CxxPrinter::Num(0x28, 16)}});
    EXPECT_EQ(os.str(), "void\nf(\n    \nelse     x;\n    other = -42, 0x28;\n");
}

TEST(CxxPrinter, BlockLeftByAnExceptionWritesNoClose)
{
    std::ostringstream os;
    UTL_Indent indent(0);
    CxxPrinter p(os, indent);
    try {
        auto b = p.block("class C\n{\n", "};\n");
        p.print("int a;\n");
        throw std::runtime_error("stop");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(os.str(), "class C\n{\n    int a;\n");
    EXPECT_EQ(indent.get_indent(), 0);
}

TEST(CxxPrinter, UnknownValueIsAnError)
{
    std::ostringstream os;
    UTL_Indent indent;
    CxxPrinter p(os, indent);
    EXPECT_THROW(p.print("$missing$"), std::logic_error);
    EXPECT_THROW(p.print("$open"), std::logic_error);
}

} // namespace
