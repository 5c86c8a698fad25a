// The base generator's settings: option letters, -x switches in
// both directions, and the loadable entry points.
#include "GEN_CPlusPlus.h"

#include <gtest/gtest.h>

#include <sstream>

extern "C" CodeGenerator* CxxInit();
extern "C" void CxxUsage();

namespace {

struct SwitchCase {
    const char* name;
    long (GEN_CPlusPlus::*query)() const;
    long after_minus; // value after "-x<name>" (set_options)
};

const SwitchCase switch_cases[] = {
    {"NoNamespaces", &GEN_CPlusPlus::namespace_support, 0},
    {"NoDispatch", &GEN_CPlusPlus::dispatch_on, 0},
    {"RTTI", &GEN_CPlusPlus::RTTI_support, 1},
    {"EnforceRaises", &GEN_CPlusPlus::enforce_raises_on, 1},
    {"Declspecs", &GEN_CPlusPlus::declspecs_on, 1},
    {"AMIPolling", &GEN_CPlusPlus::ami_polling_on, 1},
    {"AMICallbacks", &GEN_CPlusPlus::ami_callbacks_on, 1},
    {"AMICallbacks", &GEN_CPlusPlus::ami_messaging_on, 1},
};

TEST(GEN_CPlusPlusTest, SwitchesSetAndClearInBothDirections)
{
    for (const SwitchCase& c : switch_cases) {
        SCOPED_TRACE(c.name);
        GEN_CPlusPlus gen;
        const long initial = (gen.*c.query)();
        std::string text = std::string("-x") + c.name;
        gen.set_options(text.c_str());
        EXPECT_EQ((gen.*c.query)(), c.after_minus);
        EXPECT_NE((gen.*c.query)(), initial);
        gen.clear_options(text.c_str());
        EXPECT_EQ((gen.*c.query)(), initial);
        // Back-end blocks clear a switch with its "+x<name>" spelling.
        gen.set_options(text.c_str());
        text[0] = '+';
        gen.clear_options(text.c_str());
        EXPECT_EQ((gen.*c.query)(), initial);
    }
}

TEST(GEN_CPlusPlusTest, OptionLettersChangeFileSettings)
{
    GEN_CPlusPlus gen;
    gen.set_options("-hhpp:-ccpp:-ipfx/sub:-Ohinc:-Ocsrc/:-dMY_API");
    EXPECT_EQ(gen.header_ext(), YV_String("hpp"));
    EXPECT_EQ(gen.stub_ext(), YV_String("cpp"));
    EXPECT_EQ(gen.include_prefix(), YV_String("pfx/sub"));
    EXPECT_EQ(gen.header_dir(), YV_String("inc/"));
    EXPECT_EQ(gen.stub_dir(), YV_String("src/"));
    EXPECT_EQ(gen.declspecs_on(), 1);
    EXPECT_EQ(gen.declspec_name(), YV_String("MY_API"));
    gen.set_options("-sc++:-Os");
    EXPECT_EQ(gen.stub_ext(), YV_String("c++"));
    EXPECT_EQ(gen.stub_dir(), YV_String(""));
    gen.set_options(nullptr); // nothing changes
    EXPECT_EQ(gen.stub_ext(), YV_String("c++"));
}

TEST(GEN_CPlusPlusTest, UnknownOptionsAndSwitchesAreReportedAndSkipped)
{
    GEN_CPlusPlus gen;
    ::testing::internal::CaptureStderr();
    gen.set_options("-q:-xtie:-Oxdir:-xRTTI");
    const std::string err = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(err, "Unknown C++ generator option 'q'\n"
                   "Unknown C++ generator switch 'tie'\n"
                   "Unknown C++ generator option 'Ox'\n");
    EXPECT_EQ(gen.RTTI_support(), 1);
}

TEST(GEN_CPlusPlusTest, TextHelpers)
{
    EXPECT_EQ(GEN_CPlusPlus::make_legal_alpha_numeric_var("my-file.v2"), YV_String("my_file_v2"));
    EXPECT_EQ(GEN_CPlusPlus::make_legal_alpha_numeric_var("3d"), YV_String("_3d"));
    GEN_CPlusPlus gen;
    EXPECT_EQ(gen.strip_out_quotes("\"a.idl\""), YV_String("a.idl"));
    EXPECT_EQ(gen.strip_out_quotes("<omg/orb.idl>"), YV_String("omg/orb.idl"));
    EXPECT_EQ(gen.strip_out_quotes("\"unbalanced>"), YV_String("\"unbalanced>"));
    std::ostringstream banner;
    gen.output_copyright(banner);
    EXPECT_NE(banner.str().find("yvidl"), std::string::npos);
    EXPECT_NE(banner.str().find("Cxx"), std::string::npos);
}

TEST(GEN_CPlusPlusTest, NarrowAnswersForItsOwnTagAndDefersOtherwise)
{
    GEN_CPlusPlus gen;
    CodeGenerator* base = &gen;
    EXPECT_EQ(base->narrow(&GEN_CPlusPlus::_narrow_tag), static_cast<void*>(&gen));
    EXPECT_EQ(base->narrow(&CodeGenerator::_narrow_tag), static_cast<void*>(base));
    char other = 0;
    EXPECT_EQ(base->narrow(&other), nullptr);
}

TEST(GEN_CPlusPlusTest, EntryPointsHandOutOneGeneratorAndPrintUsage)
{
    CodeGenerator* first = CxxInit();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(CxxInit(), first);
    EXPECT_NE(first->narrow(&GEN_CPlusPlus::_narrow_tag), nullptr);
    ::testing::internal::CaptureStderr();
    CxxUsage();
    const std::string usage = ::testing::internal::GetCapturedStderr();
    EXPECT_NE(usage.find("-x<Switch>"), std::string::npos);
    std::ostringstream switches;
    GEN_CPlusPlus::print_switches(switches);
    for (const char* name : {"AMICallbacks", "AMIPolling", "NoNamespaces", "NoDispatch", "RTTI", "EnforceRaises",
                             "Declspecs"})
        EXPECT_NE(switches.str().find(std::string("-x") + name), std::string::npos) << name;
}

} // namespace
