// Dependency files (-MD, -MF, -MT, -MQ, -MP) and the compiler's own IDL
// directory: the rules' text, and what Make and Ninja do with them.
#include "DriverTest.h"

#include <chrono>

using namespace drivertest;

namespace {

using yvtest::read_file;
using yvtest::write_file;

class DepFileTest : public DriverTest {
protected:
    void SetUp() override
    {
        DriverTest::SetUp();
        idl_dir = yvidl({"--print-idl-dir"}).out;
        ASSERT_FALSE(idl_dir.empty());
        idl_dir.pop_back();
        // a.idl reads a file through a directory with a blank in its name,
        // that one reads a file whose name holds make's special characters,
        // and the standard <orb.idl> (which reads omg/orb.idl).
        write_file(fs::path(m_dir) / "a.idl", "#include \"in dir/b.idl\"\n#include \"b.idl\"\ninterface A { S op(); };\n");
        write_file(fs::path(m_dir) / "in dir/b.idl", "#pragma once\n#include \"c#$.idl\"\n#include <orb.idl>\nstruct S { C c; };\n");
        write_file(fs::path(m_dir) / "in dir/c#$.idl", "#pragma once\ntypedef long C;\n");
        write_file(fs::path(m_dir) / "b.idl", "#include \"in dir/b.idl\"\n");
    }

    std::string idl_dir;
};

} // namespace

// One table: command line -> the dependency file it writes and its text.
// Prerequisites come in the order first read, each once; names are quoted as
// make reads them.
TEST_F(DepFileTest, RulesHaveGccForm)
{
    const std::string deps = " \\\n in\\ dir/b.idl \\\n in\\ dir/c\\#$$.idl \\\n " + idl_dir + "/orb.idl \\\n " +
                             idl_dir + "/omg/orb.idl \\\n b.idl\n";
    struct Case {
        std::vector<std::string> args;
        std::string file;
        std::string text;
    } cases[] = {
        {{"-MD", "-poa", "a.idl"}, "a.d", "aS.hh aS.cxx: a.idl" + deps},
        {{"-MD", "-base", "-poa:-Ohout/:-Ocout/", "a.idl"}, "a.d", "a.hh a.cxx out/aS.hh out/aS.cxx: a.idl" + deps},
        {{"-MD", "-poa:-Ohout/:-Ocout/", "a.idl"}, "out/a.d", "out/aS.hh out/aS.cxx: a.idl" + deps},
        {{"-MF", "x y.d", "-MT", "$(OUT) t", "-MQ", "$(OUT) t", "a.idl"}, "x y.d", "$(OUT) t $$(OUT)\\ t: a.idl" + deps},
        {{"-MD", "a.idl"}, "a.d", "a.d: a.idl" + deps},
        // Backslashes before a blank are doubled, others stay.
        {{"-MF", "q.d", "-MQ", "x\\ y\\z", "a.idl"}, "q.d", "x\\\\\\ y\\z: a.idl" + deps},
        {{"-MP", "-MF", "p.d", "-MT", "t", "b.idl"},
         "p.d",
         "t: b.idl \\\n in\\ dir/b.idl \\\n in\\ dir/c\\#$$.idl \\\n " + idl_dir + "/orb.idl \\\n " + idl_dir +
             "/omg/orb.idl\n\nin\\ dir/b.idl:\n\nin\\ dir/c\\#$$.idl:\n\n" + idl_dir + "/orb.idl:\n\n" + idl_dir +
             "/omg/orb.idl:\n"},
        // Several inputs: one rule each, in one file.
        {{"-MF", "all.d", "-poa", "a.idl", "b.idl"},
         "all.d",
         "aS.hh aS.cxx: a.idl" + deps + "bS.hh bS.cxx: b.idl \\\n in\\ dir/b.idl \\\n in\\ dir/c\\#$$.idl \\\n " +
             idl_dir + "/orb.idl \\\n " + idl_dir + "/omg/orb.idl\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(command(c.args));
        fs::create_directories(fs::path(m_dir) / "out");
        const auto r = yvidl(c.args);
        ASSERT_EQ(r.status, 0) << r.err;
        EXPECT_EQ(read_file(fs::path(m_dir) / c.file), c.text);
        fs::remove(fs::path(m_dir) / c.file);
    }
}

// No rule for a file with errors; bad uses of the options are usage errors.
TEST_F(DepFileTest, FailuresWriteNoRules)
{
    write_file(fs::path(m_dir) / "bad.idl", "#include \"b.idl\"\ninterface {\n");
    auto r = yvidl({"-MD", "-poa", "bad.idl"});
    EXPECT_EQ(r.status, 1);
    EXPECT_FALSE(fs::exists(fs::path(m_dir) / "bad.d"));
    r = yvidl({"-MF", "both.d", "-poa", "bad.idl", "a.idl"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(read_file(fs::path(m_dir) / "both.d").compare(0, 19, "aS.hh aS.cxx: a.idl"), 0);

    const struct {
        std::vector<std::string> args;
        std::string message;
    } usage[] = {
        {{"-MF"}, "option -MF needs a file name"},
        {{"-MF", ""}, "option -MF needs a file name"},
        {{"-MT"}, "option -MT needs a target"},
        {{"-MDX"}, "unknown option '-MDX'"},
        {{"-E", "-MD"}, "-E writes no dependency file"},
    };
    for (const auto& u : usage) {
        std::vector<std::string> args = {"a.idl"};
        args.insert(args.end(), u.args.begin(), u.args.end());
        r = yvidl(args);
        EXPECT_EQ(r.status, 2) << command(args);
        EXPECT_NE(r.err.find(u.message), std::string::npos) << r.err;
    }
    // A dependency file may not replace an input.
    r = yvidl({"-MF", "b.idl", "a.idl"});
    EXPECT_EQ(r.status, 99);
    EXPECT_EQ(read_file(fs::path(m_dir) / "b.idl"), "#include \"in dir/b.idl\"\n");
}

// The IDL directory holds the standard files and comes after every -I.
TEST_F(DepFileTest, IdlDirectoryIsSearchedLast)
{
    for (const char* name : {"orb.idl", "omg/orb.idl", "omg/PortableServer.idl", "omg/Messaging.idl", "CosNaming.idl"})
        EXPECT_TRUE(fs::is_regular_file(fs::path(idl_dir) / name)) << name;

    write_file(fs::path(m_dir) / "user.idl", "#include <omg/PortableServer.idl>\n#include <CosNaming.idl>\n"
                                             "interface U { PortableServer::ObjectId id(); CosNaming::Name n(); };\n");
    auto r = yvidl({"-MD", "-MT", "t", "user.idl"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_NE(read_file(fs::path(m_dir) / "user.d").find(idl_dir + "/CosNaming.idl"), std::string::npos);

    // A user's orb.idl in an -I directory wins.
    write_file(fs::path(m_dir) / "mine/orb.idl", "typedef long Mine;\n");
    write_file(fs::path(m_dir) / "m.idl", "#include <orb.idl>\ntypedef Mine T;\n");
    r = yvidl({"-Imine", "m.idl"});
    EXPECT_EQ(r.status, 0) << r.err;
    r = yvidl({"m.idl"});
    EXPECT_EQ(r.status, 1);
}

namespace {

// The same two-file project for Make and Ninja: a.idl and b.idl both read
// "in dir/b.idl"; only.idl reads nothing else.
const char* const build_inputs[] = {"a", "b", "only"};

} // namespace

class DepFileBuildTest : public DepFileTest {
protected:
    void SetUp() override
    {
        DepFileTest::SetUp();
        write_file(fs::path(m_dir) / "only.idl", "interface Only {};\n");
    }

    // Runs the build tool; the commands it ran, one line each.
    std::string build(const std::string& tool)
    {
        const auto r = yvtest::run_command("timeout 60 " + tool, m_dir);
        EXPECT_EQ(r.status, 0) << r.out << r.err;
        return r.out;
    }

    static int yvidl_runs(const std::string& log)
    {
        int n = 0;
        for (const std::string& line : lines_of(log))
            n += line.find("yvidl") != std::string::npos && line.find("-MD") != std::string::npos;
        return n;
    }

    // Make and Ninja compare times: every file is set 10 s back after a
    // build, and a touched file 5 s back, so that it is newer than what was
    // built from it and older than anything built after it.
    void age_all()
    {
        const auto past = fs::file_time_type::clock::now() - std::chrono::seconds(10);
        for (const auto& e : fs::recursive_directory_iterator(m_dir))
            if (e.is_regular_file())
                fs::last_write_time(e.path(), past);
    }

    void touch(const std::string& name)
    {
        fs::last_write_time(fs::path(m_dir) / name, fs::file_time_type::clock::now() - std::chrono::seconds(5));
    }

    // Builds, builds again (nothing to do), touches the shared include file
    // (a and b rebuilt, not only), touches only.idl (only rebuilt).
    void check_rebuilds(const std::string& tool, const std::string& up_to_date)
    {
        EXPECT_EQ(yvidl_runs(build(tool)), 3);
        for (const char* base : build_inputs)
            EXPECT_TRUE(fs::exists(fs::path(m_dir) / (std::string(base) + "S.cxx"))) << base;
        age_all();
        std::string log = build(tool);
        EXPECT_EQ(yvidl_runs(log), 0);
        EXPECT_NE(log.find(up_to_date), std::string::npos) << log;

        touch("in dir/c#$.idl");
        log = build(tool);
        EXPECT_EQ(yvidl_runs(log), 2) << log;
        EXPECT_EQ(log.find("only.idl"), std::string::npos) << log;

        age_all();
        touch("only.idl");
        log = build(tool);
        EXPECT_EQ(yvidl_runs(log), 1) << log;
        EXPECT_NE(log.find("only.idl"), std::string::npos) << log;
        age_all();
        EXPECT_NE(build(tool).find(up_to_date), std::string::npos);
    }
};

TEST_F(DepFileBuildTest, MakeRebuildsExactlyTheOutputsWhoseIdlChanged)
{
    std::string makefile = "YVIDL = " + shell_quote(yvtest::bin_dir() + "/yvidl") +
                           "\nall: aS.cxx bS.cxx onlyS.cxx\n"
                           "%S.cxx: %.idl\n\t$(YVIDL) -MD -MP -poa $<\n"
                           "-include a.d b.d only.d\n";
    write_file(fs::path(m_dir) / "Makefile", makefile);
    check_rebuilds("make", "Nothing to be done");

    // -MP: an include file that is gone stops nothing; what read it is
    // rebuilt.
    write_file(fs::path(m_dir) / "a.idl", "interface A {};\n");
    write_file(fs::path(m_dir) / "b.idl", "interface B {};\n");
    fs::remove(fs::path(m_dir) / "in dir/b.idl");
    const std::string log = build("make");
    EXPECT_EQ(yvidl_runs(log), 2) << log;
}

TEST_F(DepFileBuildTest, NinjaRebuildsExactlyTheOutputsWhoseIdlChanged)
{
    std::string ninja = "rule yvidl\n  command = " + yvtest::bin_dir() +
                        "/yvidl -MD -MF $out.d -MQ $out -poa $in\n  depfile = $out.d\n  deps = gcc\n";
    for (const char* base : build_inputs)
        ninja += "build " + std::string(base) + "S.cxx: yvidl " + base + ".idl\n";
    write_file(fs::path(m_dir) / "build.ninja", ninja);
    check_rebuilds("ninja -v", "no work to do");
}
