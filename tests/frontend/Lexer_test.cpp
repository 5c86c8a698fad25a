// The lexer on preprocessed text: tokens and their positions, line markers,
// pass-through pragmas and back-end blocks.
#include "IDL_Lexer.h"
#include "idl_msg_header.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

std::string kinds_and_texts(const IDL_Lexer& lx)
{
    std::string out;
    for (const IDL_Token& t : lx.tokens()) {
        if (t.kind == IDL_Tok::End)
            break;
        out += IDL_Lexer::describe(t.kind) + "[" + std::string(t.text) + "]" + (t.escaped ? "!" : "") + " ";
    }
    return out;
}

struct TokenCase {
    const char* text;
    const char* expected;
};

TEST(Lexer, TokenKindsAndSpellings)
{
    const TokenCase cases[] = {
        {"a::b<<c>>d", "identifier[a] '::'[::] identifier[b] '<<'[<<] identifier[c] '>>'[>>] identifier[d] "},
        {"0x1F 017 42 1.5 .5 1e3 2.5E-2 1.5d 7D",
         "integer literal[0x1F] integer literal[017] integer literal[42] floating-point literal[1.5] "
         "floating-point literal[.5] floating-point literal[1e3] floating-point literal[2.5E-2] "
         "fixed-point literal[1.5d] fixed-point literal[7D] "},
        {"'a' L'b' \"s\" L\"w\"",
         "character literal['a'] wide character literal[L'b'] string literal[\"s\"] wide string literal[L\"w\"] "},
        {"_interface interface Interface_x", "identifier[interface]! 'interface'[interface] identifier[Interface_x] "},
        {"a // comment\n/* block\n comment */ b", "identifier[a] identifier[b] "},
        {"TRUE FALSE Object ValueBase", "'TRUE'[TRUE] 'FALSE'[FALSE] 'Object'[Object] 'ValueBase'[ValueBase] "},
    };
    for (const TokenCase& c : cases) {
        IDL_Lexer lx(c.text, "t.idl");
        EXPECT_TRUE(lx.run()) << c.text;
        EXPECT_EQ(kinds_and_texts(lx), c.expected);
    }
}

TEST(Lexer, LiteralValuesAreDecoded)
{
    IDL_Lexer lx("'\\n' '\\x41' '\\101' L'\\u20ac' \"a\\tb\\\"\" L\"\\u00e9\"", "t.idl");
    ASSERT_TRUE(lx.run());
    const auto& t = lx.tokens();
    EXPECT_EQ(lx.literal(t[0].value).code, 10u);
    EXPECT_EQ(lx.literal(t[1].value).code, 65u);
    EXPECT_EQ(lx.literal(t[2].value).code, 65u);
    EXPECT_EQ(lx.literal(t[3].value).code, 0x20acu);
    EXPECT_EQ(lx.literal(t[3].value).text, "\xe2\x82\xac");
    EXPECT_EQ(lx.literal(t[4].value).text, "a\tb\"");
    EXPECT_EQ(lx.literal(t[5].value).text, "\xc3\xa9");
}

TEST(Lexer, LineMarkersMovePositionsAndNameFiles)
{
    IDL_Lexer lx("# 1 \"main.idl\"\nx\n# 1 \"dir/inc.idl\" 1\n\n  y\n# 3 \"main.idl\" 2\nz", "ignored.idl");
    ASSERT_TRUE(lx.run());
    const auto& t = lx.tokens();
    ASSERT_EQ(t.size(), 4u);
    EXPECT_EQ(lx.file(lx.main_file())->str(), "main.idl");
    EXPECT_EQ(lx.file(t[0].file)->str(), "main.idl");
    EXPECT_EQ(t[0].line, 1u);
    EXPECT_EQ(lx.file(t[1].file)->str(), "dir/inc.idl");
    EXPECT_EQ(t[1].line, 2u);
    EXPECT_EQ(t[1].column, 3u);
    EXPECT_EQ(t[2].file, lx.main_file());
    EXPECT_EQ(t[2].line, 3u);
    // One shared file name per file.
    EXPECT_EQ(lx.file(t[0].file).get(), lx.file(t[2].file).get());
    ASSERT_EQ(lx.directives().size(), 2u);
    EXPECT_EQ(lx.directives()[0].kind, IDL_Directive::FileEnter);
    EXPECT_EQ(lx.directives()[0].before, 1u);
    EXPECT_EQ(lx.directives()[1].kind, IDL_Directive::FileLeave);
    EXPECT_EQ(lx.directives()[1].before, 2u);
}

TEST(Lexer, PragmasBecomeDirectivesAtTheirPlace)
{
    IDL_Lexer lx("a\n#pragma prefix \"omg.org\"\nb\n#pragma ID M::I \"IDL:x/I:1.0\"\n"
                 "#pragma version ::M::J 2.3\n#pragma other stuff\nc",
                 "t.idl");
    ASSERT_TRUE(lx.run());
    const auto& d = lx.directives();
    ASSERT_EQ(d.size(), 3u);
    EXPECT_EQ(d[0].kind, IDL_Directive::Prefix);
    EXPECT_EQ(d[0].arg, "omg.org");
    EXPECT_EQ(d[0].before, 1u);
    EXPECT_EQ(d[1].kind, IDL_Directive::Id);
    EXPECT_EQ(d[1].name, "M::I");
    EXPECT_EQ(d[1].arg, "IDL:x/I:1.0");
    EXPECT_EQ(d[1].loc.line, 4);
    EXPECT_EQ(d[2].kind, IDL_Directive::Version);
    EXPECT_EQ(d[2].name, "::M::J");
    EXPECT_EQ(d[2].arg, "2.3");
    EXPECT_EQ(d[2].before, 2u);
}

TEST(Lexer, BackEndBlockIsOneTokenWithItsLines)
{
    IDL_Lexer lx("a\n  %{ POACxx \n#define X\n  raw % text\n %} \nb", "t.idl");
    ASSERT_TRUE(lx.run());
    const auto& t = lx.tokens();
    ASSERT_EQ(t.size(), 4u);
    EXPECT_EQ(t[1].kind, IDL_Tok::CBEBlock);
    EXPECT_EQ(t[1].text, "POACxx");
    EXPECT_EQ(t[1].line, 2u);
    EXPECT_EQ(lx.literal(t[1].value).text, "#define X\n  raw % text\n");
    EXPECT_EQ(t[2].line, 6u);
}

TEST(Lexer, ErrorsAreCountedAndBounded)
{
    long before = idl_error_count();
    testing::internal::CaptureStderr();
    std::string bad_bytes(10000, '@'), quotes(20000, '\'');
    IDL_Lexer lx(bad_bytes, "t.idl");
    EXPECT_FALSE(lx.run());
    IDL_Lexer lots(quotes, "t.idl");
    EXPECT_FALSE(lots.run());
    std::string err = testing::internal::GetCapturedStderr();
    // A run of bad bytes is one report; many separate errors stop early.
    EXPECT_LE(idl_error_count() - before, 60);
    EXPECT_NE(err.find("t.idl:1:1: error: invalid character '@'"), std::string::npos);
}

} // namespace
