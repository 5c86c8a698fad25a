// The option text of the POACxx generator: every letter with its effect and
// its messages, switches, missing values and odd texts.
#include "GEN_POACxx.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace {

// Exposes the base generator's settings that the options change.
class OptionsGen : public GEN_POACxx {
public:
    struct Settings {
        std::string stub_ext, header_ext, client_ext, include_prefix, declspec_name, header_dir, stub_dir;
        long declspecs, poa_interfaces, coloc, tie, orb_s_hh, namespaces, dispatch, rtti;
        int hash_max;
        std::vector<std::string> patterns;

        bool operator==(const Settings& o) const
        {
            return std::tie(stub_ext, header_ext, client_ext, include_prefix, declspec_name, header_dir, stub_dir,
                            declspecs, poa_interfaces, coloc, tie, orb_s_hh, namespaces, dispatch, rtti, hash_max,
                            patterns) ==
                   std::tie(o.stub_ext, o.header_ext, o.client_ext, o.include_prefix, o.declspec_name, o.header_dir,
                            o.stub_dir, o.declspecs, o.poa_interfaces, o.coloc, o.tie, o.orb_s_hh, o.namespaces,
                            o.dispatch, o.rtti, o.hash_max, o.patterns);
        }
    };

    Settings settings() const
    {
        Settings s{m_stub_ext.str(), m_header_ext.str(), client_header_ext().str(), m_include_prefix.str(),
                   m_declspec_name.str(), m_header_dir.str(), m_stub_dir.str(), m_declspecs, poa_interfaces_on(),
                   coloc_poa_on(), tie_on(), orb_s_hh_on(), namespace_support(), dispatch_on(), RTTI_support(),
                   hash_max(), {}};
        exclude_patterns().for_each([&](const YV_String& k, const YV_String&) { s.patterns.push_back(k.str()); });
        std::sort(s.patterns.begin(), s.patterns.end());
        return s;
    }
};

std::ostream& operator<<(std::ostream& os, const OptionsGen::Settings& s)
{
    os << "{stub=" << s.stub_ext << " header=" << s.header_ext << " client=" << s.client_ext
       << " prefix=" << s.include_prefix << " declspecs=" << s.declspecs << " name=" << s.declspec_name
       << " hdir=" << s.header_dir << " sdir=" << s.stub_dir << " poa=" << s.poa_interfaces << " coloc=" << s.coloc
       << " tie=" << s.tie << " orb=" << s.orb_s_hh << " ns=" << s.namespaces << " dispatch=" << s.dispatch
       << " rtti=" << s.rtti << " p=" << s.hash_max << " m=";
    for (const auto& p : s.patterns)
        os << p << ",";
    return os << "}";
}

using Change = std::function<void(OptionsGen::Settings&)>;

struct OptionCase {
    const char* text;
    Change change;       // what the text changes in the default settings
    const char* err;     // everything written on the error stream
};

const Change NOTHING = [](OptionsGen::Settings&) {};

class OptionText : public testing::TestWithParam<OptionCase> {};

TEST_P(OptionText, ChangesItsSettingAndReports)
{
    const OptionCase& c = GetParam();
    OptionsGen gen;
    OptionsGen::Settings expected = gen.settings();
    c.change(expected);

    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    gen.set_options(c.text);
    std::string err = testing::internal::GetCapturedStderr();
    std::string out = testing::internal::GetCapturedStdout();

    EXPECT_EQ(gen.settings(), expected) << "option text: " << (c.text ? c.text : "(null)");
    EXPECT_EQ(err, c.err) << "option text: " << (c.text ? c.text : "(null)");
    EXPECT_EQ(out, "");
}

const OptionCase OPTION_CASES[] = {
    {nullptr, NOTHING, ""},
    {"", NOTHING, ""},
    {":::", NOTHING, ""},
    {"-:+", NOTHING, ""},
    {"-ccpp", [](auto& s) { s.stub_ext = "cpp"; }, ""},
    {"-scc", [](auto& s) { s.stub_ext = "cc"; }, ""},
    {"-c.C:-s_s.cc", [](auto& s) { s.stub_ext = "_s.cc"; }, ""},
    {"-hhpp", [](auto& s) { s.header_ext = "hpp"; }, ""},
    {"-hhpp:-hh2", [](auto& s) { s.header_ext = "h2"; }, ""},
    {"-bhpp", [](auto& s) { s.client_ext = "hpp"; }, ""},
    {"-b.hpp", [](auto& s) { s.client_ext = ".hpp"; }, ""},
    {"-ipfx/sub", [](auto& s) { s.include_prefix = "pfx/sub"; }, ""},
    {"-i", NOTHING, ""},
    {"-d", [](auto& s) { s.declspecs = 1; }, ""},
    {"-dMY_API", [](auto& s) { s.declspecs = 1; s.declspec_name = "MY_API"; }, ""},
    {"-mfoo:-mfoo", [](auto& s) { s.patterns = {"foo"}; }, ""},
    {"-mfoo:-momg/orb.idl", [](auto& s) { s.patterns = {"foo", "omg/orb.idl"}; }, ""},
    {"-m", NOTHING, ""},
    {"-p3", [](auto& s) { s.hash_max = 3; }, ""},
    {"-pabc", [](auto& s) { s.hash_max = 0; }, ""},
    {"-p-2", [](auto& s) { s.hash_max = -2; }, ""},
    {"-p12x", [](auto& s) { s.hash_max = 12; }, ""},
    {"-Oh../include", [](auto& s) { s.header_dir = "../include/"; }, ""},
    {"-Oh../include/", [](auto& s) { s.header_dir = "../include/"; }, ""},
    {"-Oc../stub", [](auto& s) { s.stub_dir = "../stub/"; }, ""},
    {"-Os../stub/", [](auto& s) { s.stub_dir = "../stub/"; }, ""},
    {"-Oh", NOTHING, ""},
    {"-Ox", NOTHING, "Unknown C++ generator option 'Ox'\n"},
    {"-Oxdir:-Ohinc", [](auto& s) { s.header_dir = "inc/"; }, "Unknown C++ generator option 'Ox'\n"},
    {"-t", NOTHING, ""},
    {"-tfoo", NOTHING, ""},
    {"-g", NOTHING, "Unknown POA C++ generator option 'g'\n"},
    {"-q:-p3", [](auto& s) { s.hash_max = 3; }, "Unknown POA C++ generator option 'q'\n"},
    {"-Q:-?", NOTHING, "Unknown POA C++ generator option 'Q'\nUnknown POA C++ generator option '?'\n"},
    {"-xPOAInterfaces", [](auto& s) { s.poa_interfaces = 0; }, ""},
    {"-xColocPOA", [](auto& s) { s.coloc = 1; }, ""},
    {"-xTIE", [](auto& s) { s.tie = 1; }, ""},
    {"+xTIE", [](auto& s) { s.tie = 1; }, ""},
    {"-xORB_S_HH", [](auto& s) { s.orb_s_hh = 1; }, ""},
    {"-xNoNamespaces", [](auto& s) { s.namespaces = 0; }, ""},
    {"-xNoDispatch:-xRTTI", [](auto& s) { s.dispatch = 0; s.rtti = 1; }, ""},
    {"-xtie", NOTHING, "Unknown C++ generator switch 'tie'\n"},
    {"-c", NOTHING, "Warning: POA C++ generator option '-c' needs a value\n"},
    {"-s:-h:-b", NOTHING,
     "Warning: POA C++ generator option '-s' needs a value\n"
     "Warning: POA C++ generator option '-h' needs a value\n"
     "Warning: POA C++ generator option '-b' needs a value\n"},
    {"-x:-p:-O", NOTHING,
     "Warning: POA C++ generator option '-x' needs a value\n"
     "Warning: POA C++ generator option '-p' needs a value\n"
     "Warning: POA C++ generator option '-O' needs a value\n"},
    {"-ccpp:-p7:-xTIE:-mx:-dAPI:-Ohh/",
     [](auto& s) {
         s.stub_ext = "cpp";
         s.hash_max = 7;
         s.tie = 1;
         s.patterns = {"x"};
         s.declspecs = 1;
         s.declspec_name = "API";
         s.header_dir = "h/";
     },
     ""},
};

INSTANTIATE_TEST_SUITE_P(Options, OptionText, testing::ValuesIn(OPTION_CASES));

TEST(Options, ClearOptionsUndoesSwitches)
{
    OptionsGen gen;
    gen.set_options("-xTIE:-xColocPOA:-xORB_S_HH:-xPOAInterfaces:-d");
    gen.clear_options("+xTIE:+xColocPOA:+xORB_S_HH:+xPOAInterfaces:+d");
    OptionsGen::Settings s = gen.settings();
    EXPECT_EQ(s.tie, 0);
    EXPECT_EQ(s.coloc, 0);
    EXPECT_EQ(s.orb_s_hh, 0);
    EXPECT_EQ(s.poa_interfaces, 1);
    EXPECT_EQ(s.declspecs, 0);
}

TEST(Options, OnAndOffValuesAreStoredAsGiven)
{
    OptionsGen gen;
    gen.set_options("-xTIE:-xPOAInterfaces", 7, 5);
    EXPECT_EQ(gen.tie_on(), 7);
    EXPECT_EQ(gen.poa_interfaces_on(), 5);
}

TEST(Options, SettingsSurviveLaterTexts)
{
    OptionsGen gen;
    gen.set_options("-xTIE:-p4:-ma");
    gen.set_options("-mb");
    gen.set_options(nullptr);
    OptionsGen::Settings s = gen.settings();
    EXPECT_EQ(s.tie, 1);
    EXPECT_EQ(s.hash_max, 4);
    EXPECT_EQ(s.patterns, (std::vector<std::string>{"a", "b"}));
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
