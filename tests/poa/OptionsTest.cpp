// The option text of the POACxx generator: every letter with its effect and
// its messages, switches, missing values and odd texts.
#include "GEN_POACxx.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

namespace {

using Settings = std::map<std::string, std::string>;

// Exposes the settings that the options change, by name.
class OptionsGen : public GEN_POACxx {
public:
    Settings settings() const
    {
        std::string patterns;
        std::vector<std::string> sorted;
        exclude_patterns().for_each([&](const YV_String& k, const YV_String&) { sorted.push_back(k.str()); });
        std::sort(sorted.begin(), sorted.end());
        for (const std::string& p : sorted)
            patterns += p + ",";
        return {{"c", m_stub_ext.str()},           {"h", m_header_ext.str()},
                {"b", client_header_ext().str()},  {"i", m_include_prefix.str()},
                {"d", std::to_string(m_declspecs)}, {"dname", m_declspec_name.str()},
                {"Oh", m_header_dir.str()},        {"Oc", m_stub_dir.str()},
                {"poa", std::to_string(poa_interfaces_on())},
                {"coloc", std::to_string(coloc_poa_on())},
                {"tie", std::to_string(tie_on())}, {"orb", std::to_string(orb_s_hh_on())},
                {"ns", std::to_string(namespace_support())},
                {"dispatch", std::to_string(dispatch_on())},
                {"rtti", std::to_string(RTTI_support())},
                {"p", std::to_string(hash_max())}, {"m", patterns}};
    }
};

struct OptionCase {
    const char* text;
    Settings changed;    // the settings the text changes, with their new values
    const char* err;     // everything written on the error stream
};

std::ostream& operator<<(std::ostream& os, const OptionCase& c) { return os << (c.text ? c.text : "(null)"); }

class OptionText : public testing::TestWithParam<OptionCase> {};

TEST_P(OptionText, ChangesItsSettingAndReports)
{
    const OptionCase& c = GetParam();
    OptionsGen gen;
    Settings expected = gen.settings();
    for (const auto& kv : c.changed)
        expected[kv.first] = kv.second;

    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    gen.set_options(c.text);
    std::string err = testing::internal::GetCapturedStderr();
    std::string out = testing::internal::GetCapturedStdout();

    EXPECT_EQ(gen.settings(), expected);
    EXPECT_EQ(err, c.err);
    EXPECT_EQ(out, "");
}

const OptionCase OPTION_CASES[] = {
    {nullptr, {}, ""},
    {"", {}, ""},
    {":::", {}, ""},
    {"-:+", {}, ""},
    {"-ccpp", {{"c", "cpp"}}, ""},
    {"-scc", {{"c", "cc"}}, ""},
    {"-c.C:-s_s.cc", {{"c", "_s.cc"}}, ""},
    {"-hhpp", {{"h", "hpp"}}, ""},
    {"-hhpp:-hh2", {{"h", "h2"}}, ""},
    {"-bhpp", {{"b", "hpp"}}, ""},
    {"-b.hpp", {{"b", ".hpp"}}, ""},
    {"-ipfx/sub", {{"i", "pfx/sub"}}, ""},
    {"-i", {}, ""},
    {"-d", {{"d", "1"}}, ""},
    {"-dMY_API", {{"d", "1"}, {"dname", "MY_API"}}, ""},
    {"-mfoo:-mfoo", {{"m", "foo,"}}, ""},
    {"-mfoo:-momg/orb.idl", {{"m", "foo,omg/orb.idl,"}}, ""},
    {"-m", {}, ""},
    {"-p3", {{"p", "3"}}, ""},
    {"-pabc", {{"p", "0"}}, ""},
    {"-p-2", {{"p", "-2"}}, ""},
    {"-p12x", {{"p", "12"}}, ""},
    {"-Oh../include", {{"Oh", "../include/"}}, ""},
    {"-Oh../include/", {{"Oh", "../include/"}}, ""},
    {"-Oc../stub", {{"Oc", "../stub/"}}, ""},
    {"-Os../stub/", {{"Oc", "../stub/"}}, ""},
    {"-Oh", {}, ""},
    {"-Ox", {}, "Unknown C++ generator option 'Ox'\n"},
    {"-Oxdir:-Ohinc", {{"Oh", "inc/"}}, "Unknown C++ generator option 'Ox'\n"},
    {"-t", {}, ""},
    {"-tfoo", {}, ""},
    {"-g", {}, "Unknown POA C++ generator option 'g'\n"},
    {"-q:-p3", {{"p", "3"}}, "Unknown POA C++ generator option 'q'\n"},
    {"-Q:-?", {}, "Unknown POA C++ generator option 'Q'\nUnknown POA C++ generator option '?'\n"},
    {"-xPOAInterfaces", {{"poa", "0"}}, ""},
    {"-xColocPOA", {{"coloc", "1"}}, ""},
    {"-xTIE", {{"tie", "1"}}, ""},
    {"+xTIE", {{"tie", "1"}}, ""},
    {"-xORB_S_HH", {{"orb", "1"}}, ""},
    {"-xNoNamespaces", {{"ns", "0"}}, ""},
    {"-xNoDispatch:-xRTTI", {{"dispatch", "0"}, {"rtti", "1"}}, ""},
    {"-xtie", {}, "Unknown C++ generator switch 'tie'\n"},
    {"-c", {}, "Warning: POA C++ generator option '-c' needs a value\n"},
    {"-s:-h:-b", {},
     "Warning: POA C++ generator option '-s' needs a value\n"
     "Warning: POA C++ generator option '-h' needs a value\n"
     "Warning: POA C++ generator option '-b' needs a value\n"},
    {"-x:-p:-O", {},
     "Warning: POA C++ generator option '-x' needs a value\n"
     "Warning: POA C++ generator option '-p' needs a value\n"
     "Warning: POA C++ generator option '-O' needs a value\n"},
    {"-ccpp:-p7:-xTIE:-mx:-dAPI:-Ohh/",
     {{"c", "cpp"}, {"p", "7"}, {"tie", "1"}, {"m", "x,"}, {"d", "1"}, {"dname", "API"}, {"Oh", "h/"}}, ""},
};

INSTANTIATE_TEST_SUITE_P(Options, OptionText, testing::ValuesIn(OPTION_CASES));

TEST(Options, ClearOptionsUndoesSwitches)
{
    OptionsGen gen;
    gen.set_options("-xTIE:-xColocPOA:-xORB_S_HH:-xPOAInterfaces:-d");
    gen.clear_options("+xTIE:+xColocPOA:+xORB_S_HH:+xPOAInterfaces:+d");
    EXPECT_EQ(gen.settings(), OptionsGen().settings());
}

TEST(Options, SettingsSurviveLaterTexts)
{
    OptionsGen gen;
    gen.set_options("-xTIE:-p4:-ma");
    gen.set_options("-mb");
    gen.set_options(nullptr);
    Settings s = gen.settings();
    EXPECT_EQ(s["tie"], "1");
    EXPECT_EQ(s["p"], "4");
    EXPECT_EQ(s["m"], "a,b,");
}

TEST(Options, CopyKeepsEverySetting)
{
    OptionsGen gen;
    gen.set_options("-xTIE:-p4:-ma:-mb:-bhpp:-xColocPOA:-xPOAInterfaces:-xORB_S_HH");
    GEN_POACxx copy(gen);
    EXPECT_EQ(copy.tie_on(), 1);
    EXPECT_EQ(copy.hash_max(), 4);
    EXPECT_EQ(copy.exclude_patterns().size(), 2u);
    EXPECT_TRUE(copy.exclude_patterns().contains("a"));
    EXPECT_EQ(copy.client_header_ext(), YV_String("hpp"));
    EXPECT_EQ(copy.coloc_poa_on(), 1);
    EXPECT_EQ(copy.poa_interfaces_on(), 0);
    EXPECT_EQ(copy.orb_s_hh_on(), 1);
}

TEST(Options, VeryLongAndOddTextsDoNotCrash)
{
    OptionsGen gen;
    std::string text(100000, ':');
    text += "-p5";
    testing::internal::CaptureStderr();
    gen.set_options(text.c_str());
    gen.set_options(std::string(50000, '-').c_str());
    gen.set_options("-\x01:-\xff:-O\xff");
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(gen.hash_max(), 5);
}

} // namespace
