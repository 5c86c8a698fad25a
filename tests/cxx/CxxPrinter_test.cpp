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

// A literal's pieces are kept from its first print: printed again at other
// levels, from another line position, unindented and with other values, it
// must give what the same text as a plain string gives.
template <std::size_t N>
void expect_as_string(const char (&literal)[N], const char* name)
{
    struct State {
        int level;
        bool line_start;
        bool raw;
        const char* t;
    };
    const State states[] = {{0, true, false, "long"}, {2, true, false, ""}, {1, false, false, "x"},
                            {3, true, true, "char*"}, {1, true, false, "long"}};
    for (const State& st : states) {
        std::ostringstream kept, plain;
        UTL_Indent kept_indent(st.level), plain_indent(st.level);
        CxxPrinter k(kept, kept_indent, st.line_start), q(plain, plain_indent, st.line_start);
        const CxxPrinter::Vars vars = {{"t", st.t}, {"n", "v"}};
        if (st.raw) {
            k.raw(literal, vars);
            q.raw(std::string(literal), vars);
        } else {
            k.print(literal, vars);
            q.print(std::string(literal), vars);
        }
        // The line position after the text must agree too.
        k.print("#\n");
        q.print("#\n");
        EXPECT_EQ(kept.str(), plain.str()) << name << " at level " << st.level;
    }
}

TEST(CxxPrinter, KeptLiteralsWriteAsPlainStrings)
{
    expect_as_string("int a;\n", "one line");
    expect_as_string("a;\n\n  b;\n", "empty line");
    expect_as_string("$t$ $n$ = $n$_init;\n", "values");
    expect_as_string("$t$", "value alone");
    expect_as_string("\n$t$", "value after a line end");
    expect_as_string("a$$b$t$\n", "dollar");
    expect_as_string("tail", "no line end");
    expect_as_string("", "empty");
}

// The kept pieces belong to the text, not only to its address: an array
// that comes to hold another text is split again.
TEST(CxxPrinter, ChangedTextAtAKeptAddressIsSplitAgain)
{
    char storage[] = "a $t$;\n";
    const char(&text)[sizeof storage] = storage;
    std::ostringstream os;
    UTL_Indent indent(0);
    CxxPrinter p(os, indent);
    p.print(text, {{"t", "x"}});
    storage[2] = '[';
    storage[4] = ']';
    p.print(text, {{"t", "x"}});
    EXPECT_EQ(os.str(), "a x;\na [t];\n");
}

TEST(CxxPrinter, UnknownValueIsAnError)
{
    std::ostringstream os;
    UTL_Indent indent;
    CxxPrinter p(os, indent);
    EXPECT_THROW(p.print("$missing$"), std::logic_error);
    EXPECT_THROW(p.print("$open"), std::logic_error);
    EXPECT_THROW(p.print(std::string("$open")), std::logic_error);
    EXPECT_THROW(p.print(std::string("$missing$")), std::logic_error);
}

} // namespace
