#include "YV_Config.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

TEST(YV_Config, ParsesKeyValueLines)
{
    const YV_Config cfg = YV_Config::parse(
        "# a comment\n"
        "\n"
        "plugin-dir = /opt/yv/lib  \n"
        "   # indented comment = not a key\n"
        "options.POACxx=-p5:-xTIE\r\n"
        "no equals sign here\n"
        " = value without key\n"
        "empty =\n"
        "url = a=b=c\n"
        "twice = first\n"
        "twice = second\n"
        "\tlast = no newline at end");
    struct Case {
        const char* key;
        const char* value;  // null: absent
    } cases[] = {
        {"plugin-dir", "/opt/yv/lib"},
        {"options.POACxx", "-p5:-xTIE"},
        {"url", "a=b=c"},
        {"empty", ""},
        {"twice", "second"},
        {"last", "no newline at end"},
        {"# indented comment", nullptr},
        {"no equals sign here", nullptr},
        {"", nullptr},
        {"PLUGIN-DIR", nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        const std::string* v = cfg.get(c.key);
        if (c.value) {
            ASSERT_NE(v, nullptr);
            EXPECT_EQ(*v, c.value);
        } else {
            EXPECT_EQ(v, nullptr);
        }
    }
}

TEST(YV_Config, LoadsFilesAndMissesGracefully)
{
    const std::string dir = yvtest::make_temp_dir("config");
    yvtest::write_file(dir + "/yvidl.cfg", "plugin-dir = here\n");
    auto cfg = YV_Config::load(dir + "/yvidl.cfg");
    ASSERT_TRUE(cfg.has_value());
    ASSERT_NE(cfg->get("plugin-dir"), nullptr);
    EXPECT_EQ(*cfg->get("plugin-dir"), "here");
    EXPECT_FALSE(YV_Config::load(dir + "/absent.cfg").has_value());
    const auto from_directory = YV_Config::load(dir);
    EXPECT_TRUE(!from_directory || !from_directory->get("plugin-dir"));
    std::filesystem::remove_all(dir);
}

TEST(YV_Config, DefaultPathFollowsEnvironment)
{
    const char* saved = std::getenv("YVIDL_CONFIG");
    const std::string old = saved ? saved : "";
    unsetenv("YVIDL_CONFIG");
    const std::string exe_dir = YV_Config::executable_dir();
    EXPECT_FALSE(exe_dir.empty());
    EXPECT_TRUE(std::filesystem::is_directory(exe_dir));
    EXPECT_EQ(YV_Config::default_path(), exe_dir + "/yvidl.cfg");
    setenv("YVIDL_CONFIG", "/somewhere/else.cfg", 1);
    EXPECT_EQ(YV_Config::default_path(), "/somewhere/else.cfg");
    if (saved)
        setenv("YVIDL_CONFIG", old.c_str(), 1);
    else
        unsetenv("YVIDL_CONFIG");
}
