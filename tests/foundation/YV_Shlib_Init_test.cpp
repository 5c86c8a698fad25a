#include "YV_Shlib_Init.h"
#include "YV_StderrCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>

namespace {

const YV_Shlib_Flags level_2_1 = {0x201UL, 0UL};
const YV_Shlib_Flags level_3_0 = {0x300UL, 0UL};
const YV_Shlib_Dependency no_dependencies[] = {{nullptr, nullptr, 0UL}};

bool is_registered(const std::string& name)
{
    auto all = YV_Shlib_Init::registered();
    return std::any_of(all.begin(), all.end(), [&](const YV_Shlib_Init::Entry& e) { return e.name == name; });
}

} // namespace

TEST(YV_Shlib_Init, FoundationRegistersItselfAtLoad)
{
    ASSERT_NE(YV_Shlib_Init::version_of("yv_ifc"), nullptr);
    EXPECT_STREQ(YV_Shlib_Init::version_of("yv_ifc"), "3");
    EXPECT_EQ(YV_Shlib_Init::version_of("no_such_library"), nullptr);
    EXPECT_EQ(YV_Shlib_Init::version_of(nullptr), nullptr);
}

TEST(YV_Shlib_Init, EntryLivesAsLongAsTheObject)
{
    const YV_Shlib_Description self = {"test_lifetime", "7", &level_2_1, nullptr};
    {
        YV_Shlib_Init init(self, no_dependencies, YV_global_default_exc_handler);
        EXPECT_TRUE(is_registered("test_lifetime"));
        EXPECT_STREQ(YV_Shlib_Init::version_of("test_lifetime"), "7");
        auto all = YV_Shlib_Init::registered();
        EXPECT_EQ(all.back().name, "test_lifetime");
        EXPECT_EQ(all.back().interface_level, 0x201UL);
    }
    EXPECT_FALSE(is_registered("test_lifetime"));
}

// A version text handed out stays valid while other libraries come and go.
TEST(YV_Shlib_Init, VersionTextSurvivesOtherRegistrations)
{
    const YV_Shlib_Description keep = {"test_keep", "5", nullptr, nullptr};
    YV_Shlib_Init kept(keep, no_dependencies, nullptr);
    const char* version = YV_Shlib_Init::version_of("test_keep");
    {
        std::vector<std::unique_ptr<YV_Shlib_Init>> others;
        std::vector<std::string> names;
        for (int i = 0; i < 50; ++i)
            names.push_back("test_other_" + std::to_string(i));
        for (const std::string& n : names) {
            YV_Shlib_Description d = {n.c_str(), "1", nullptr, nullptr};
            others.push_back(std::make_unique<YV_Shlib_Init>(d, no_dependencies, nullptr));
        }
    }
    EXPECT_STREQ(version, "5");
    EXPECT_EQ(version, YV_Shlib_Init::version_of("test_keep"));
}

// Every dependency problem is a warning on the error stream; the library is
// registered all the same.
TEST(YV_Shlib_Init, DependencyProblemsAreWarnings)
{
    const YV_Shlib_Description base = {"test_base", "3", &level_2_1, nullptr};
    YV_Shlib_Init base_init(base, no_dependencies, nullptr);
    const YV_Shlib_Description plain = {"test_plain", "3", nullptr, nullptr};
    YV_Shlib_Init plain_init(plain, no_dependencies, nullptr);

    struct Case {
        const char* label;
        YV_Shlib_Dependency dependency;
        const char* warning;  // null: no output expected
    };
    const Case cases[] = {
        {"satisfied", {"test_base", "3", 0x201UL}, nullptr},
        {"older minor level wanted", {"test_base", "3", 0x200UL}, nullptr},
        {"missing", {"test_absent", "3", 0x201UL}, "needs test_absent version 3, which is not loaded"},
        {"other version", {"test_base", "4", 0x201UL}, "needs test_base version 4, but version 3 is loaded"},
        {"newer minor level", {"test_base", "3", 0x202UL}, "needs test_base interface level 2.2, but level 2.1"},
        {"other major level", {"test_base", "3", 0x301UL}, "needs test_base interface level 3.1, but level 2.1"},
        {"foundation dependency", {"test_absent", "9", 0x10201UL}, nullptr},
        {"library without flags, any level", {"test_plain", "3", 0x907UL}, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const YV_Shlib_Dependency deps[] = {c.dependency, {nullptr, nullptr, 0UL}};
        const YV_Shlib_Description self = {"test_user", "3", &level_3_0, nullptr};
        yvtest::StderrCapture capture;
        {
            YV_Shlib_Init user(self, deps, nullptr);
            EXPECT_TRUE(is_registered("test_user"));
        }
        const std::string err = capture.text();
        if (c.warning) {
            EXPECT_NE(err.find("yvidl: warning: library test_user " + std::string(c.warning)), std::string::npos)
                << err;
        } else {
            EXPECT_EQ(err, "");
        }
    }
}

TEST(YV_Shlib_Init, NullDependencyArrayIsAccepted)
{
    const YV_Shlib_Description self = {"test_nodeps", "3", nullptr, nullptr};
    YV_Shlib_Init init(self, nullptr, nullptr);
    EXPECT_TRUE(is_registered("test_nodeps"));
}
