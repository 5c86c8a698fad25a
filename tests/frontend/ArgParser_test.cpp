#include "UTL_ArgParser.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Every option of `text`, as "<sign><letter>[=<arg>]".
std::vector<std::string> options_of(const char* text, const char* grammar = "c:h:s:b:x:gi:d:tm:p:O:")
{
    UTL_ArgParser p;
    p.initGetOptString(text);
    std::vector<std::string> out;
    for (int c; (c = p.getOptString(grammar)) != -1;) {
        std::string o{p.optsign(), static_cast<char>(c)};
        if (p.optarg())
            o += "=" + std::string(p.optarg());
        out.push_back(o);
        if (out.size() > 1000)
            break;  // a parser that never ends
    }
    return out;
}

using Options = std::vector<std::string>;

} // namespace

TEST(UTL_ArgParser, SplitsOptionTexts)
{
    struct Case {
        const char* text;
        Options expected;
    } cases[] = {
        {"-xTIE:-p3", {"-x=TIE", "-p=3"}},
        {"+xAMICallbacks:-xTIE", {"+x=AMICallbacks", "-x=TIE"}},
        {"-g:-t", {"-g", "-t"}},
        {"-Oh../include/:-Oc../stub/", {"-O=h../include/", "-O=c../stub/"}},
        // Letters the grammar does not list are returned as well.
        {"-z:-Zvalue", {"-z", "-Z=value"}},
        // Empty elements are skipped.
        {"::-g:::-h.h::", {"-g", "-h=.h"}},
        {":", {}},
        {"", {}},
        // A lone sign has no letter; non-options are skipped.
        {"-:+:-g", {"-g"}},
        {"plain:word:-t", {"-t"}},
        // The value never comes from the next element.
        {"-p:5", {"-p"}},
        {"-d:-i", {"-d", "-i"}},
        // Only the first two characters make the option; the rest is its value.
        {"--x", {"--=x"}},
        {"-x-y+z", {"-x=-y+z"}},
        {"-\xff", {std::string("-\xff")}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string("text: ") + c.text);
        EXPECT_EQ(options_of(c.text), c.expected);
    }
}

TEST(UTL_ArgParser, NullTextHasNoOptions)
{
    EXPECT_EQ(options_of(nullptr), Options{});
    UTL_ArgParser p;
    p.initGetOptString(nullptr);
    EXPECT_EQ(p.getOptString("x:"), -1);
    EXPECT_EQ(p.optarg(), nullptr);
    EXPECT_EQ(p.getOptString("x:"), -1);
}

TEST(UTL_ArgParser, RestartsWithANewText)
{
    UTL_ArgParser p;
    p.initGetOptString("-a1:-b2");
    EXPECT_EQ(p.getOptString(""), 'a');
    p.initGetOptString("-c");
    EXPECT_EQ(p.optarg(), nullptr);
    EXPECT_EQ(p.getOptString(""), 'c');
    EXPECT_EQ(p.optarg(), nullptr);
    EXPECT_EQ(p.getOptString(""), -1);
    EXPECT_EQ(p.optarg(), nullptr);
}

TEST(UTL_ArgParser, LongTextsStayWhole)
{
    const std::string value(100000, 'v');
    const std::string text = "-x" + value + ":" + std::string(5000, ':') + "-t";
    EXPECT_EQ(options_of(text.c_str()), (Options{"-x=" + value, "-t"}));
}
