// Output files and inputs that are not ordinary: write errors, a full disk,
// names that give no or clashing output names, pipes and devices.
#include "DriverTest.h"

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace {

const std::string kBankOutputs[] = {"bank_small.hh", "bank_small.cxx", "bank_smallS.hh", "bank_smallS.cxx"};

TEST_F(DriverTest, WriteErrorsEndTheRunWith99)
{
    struct Case {
        std::vector<std::string> switches;
        std::string full;               // the output that goes to /dev/full
        std::vector<std::string> done;  // outputs written before it
    } cases[] = {
        {{"-poa"}, "bank_smallS.hh", {}},
        {{"-poa"}, "bank_smallS.cxx", {"bank_smallS.hh"}},
        {{"-base"}, "bank_small.hh", {}},
        {{"-base", "-poa"}, "bank_small.cxx", {"bank_small.hh"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.full);
        for (const auto& e : fs::directory_iterator(m_dir))
            fs::remove(e.path());
        fs::create_symlink("/dev/full", m_dir + "/" + c.full);
        std::vector<std::string> args = c.switches;
        args.push_back(data("bank_small.idl"));
        auto r = yvidl(args);
        EXPECT_EQ(r.status, 99);
        EXPECT_EQ(r.err, "yvidl: error: cannot write " + c.full + ": No space left on device\n");
        Names expected(c.done.begin(), c.done.end());
        expected.insert(c.full);
        EXPECT_EQ(outputs(), expected);
        for (const std::string& name : c.done) {  // complete headers
            const std::string text = yvtest::read_file(m_dir + "/" + name);
            EXPECT_EQ(text.substr(text.size() - 7), "#endif\n") << name;
        }
    }
}

TEST_F(DriverTest, StandardOutputErrorsEndTheRunWith99)
{
    auto r = yvtest::run_command("exec >/dev/full; " + command({"-E", data("bank_small.idl")}), m_dir);
    EXPECT_EQ(r.status, 99);
    EXPECT_EQ(r.err, "yvidl: error: cannot write standard output: No space left on device\n");
}

// A small file system that fills up in the middle of the run. Mounting
// needs root; elsewhere /dev/full above stands in for it.
class FullDisk : public DriverTest {
protected:
    void SetUp() override
    {
        DriverTest::SetUp();
        m_small = m_dir + "/small";
        fs::create_directories(m_small);
        if (::geteuid() != 0 || std::system(("mount -t tmpfs -o size=64k tmpfs " + shell_quote(m_small) +
                                              " 2>/dev/null").c_str()) != 0)
            GTEST_SKIP() << "mounting a small file system needs root";
        m_mounted = true;
    }
    void TearDown() override
    {
        if (m_mounted)
            std::system(("umount " + shell_quote(m_small)).c_str());
        DriverTest::TearDown();
    }

    std::string m_small;
    bool m_mounted = false;
};

TEST_F(FullDisk, LeavesOnlyCompleteFilesAndKeepsEarlierOnes)
{
    // An input whose outputs do not fit; the outputs of an earlier run
    // must survive wherever the new ones cannot be put in place.
    const std::string big =
        "module Big {\n" + yvtest::numbered("  interface I@ { void op(in string s, out long l); };\n", 0, 400) + "};\n";
    yvtest::write_file(m_dir + "/roomy/bank_small.idl", big);
    auto reference = yvtest::run_command(command({"-base", "-poa", "bank_small.idl"}), m_dir + "/roomy");
    ASSERT_EQ(reference.status, 0) << reference.err;

    yvtest::write_file(m_small + "/bank_small.idl", big);
    for (const std::string& name : kBankOutputs)
        yvtest::write_file(m_small + "/" + name, "earlier\n");
    auto r = yvtest::run_command(command({"-base", "-poa", "bank_small.idl"}), m_small);
    EXPECT_EQ(r.status, 99);
    EXPECT_NE(r.err.find(": No space left on device\n"), std::string::npos) << r.err;

    Names expected(std::begin(kBankOutputs), std::end(kBankOutputs));
    expected.insert("bank_small.idl");
    Names present;
    for (const auto& e : fs::directory_iterator(m_small))
        present.insert(e.path().filename().string());
    EXPECT_EQ(present, expected);  // no temporary files left behind
    int earlier = 0;
    for (const std::string& name : kBankOutputs) {
        const std::string text = yvtest::read_file(m_small + "/" + name);
        if (text == "earlier\n")
            ++earlier;
        else
            EXPECT_EQ(text, yvtest::read_file(m_dir + "/roomy/" + name)) << name;
    }
    EXPECT_GE(earlier, 1);
}

TEST_F(DriverTest, NamesWithoutOutputNamesAreRefused)
{
    yvtest::write_file(m_dir + "/b", yvtest::read_file(data("second.idl")));
    yvtest::write_file(m_dir + "/.idl", yvtest::read_file(data("second.idl")));
    yvtest::write_file(m_dir + "/a.idl", yvtest::read_file(data("bank_small.idl")));
    struct Case {
        std::vector<std::string> args;
        std::string message;
        Names written;
    } cases[] = {
        {{"-poa", "b"}, "input 'b' has no extension", {}},
        {{"-base", "-poa", "a.idl", "b"}, "input 'b' has no extension", {"a.hh", "a.cxx", "aS.hh", "aS.cxx"}},
        {{"-poa", ".idl"}, "input '.idl' has nothing before its extension", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        auto r = yvidl(c.args);
        EXPECT_EQ(r.status, 1);
        EXPECT_NE(r.err.find("yvidl: error: " + c.message), std::string::npos) << r.err;
        Names expected = c.written;
        expected.insert({"a.idl", "b", ".idl"});
        EXPECT_EQ(outputs(), expected);
        if (!c.written.empty()) {
            EXPECT_NE(yvtest::read_file(m_dir + "/aS.hh").find("POA_Bank"), std::string::npos);
            for (const std::string& name : c.written)
                fs::remove(m_dir + "/" + name);
        }
    }
    // Checking and preprocessing need no output names.
    EXPECT_EQ(yvidl({"b"}).status, 0);
    EXPECT_EQ(yvidl({"-E", "b"}).status, 0);
}

TEST_F(DriverTest, OutputsThatWouldReplaceAnotherOutputOrAnInputAreRefused)
{
    yvtest::write_file(m_dir + "/x.idl", yvtest::read_file(data("bank_small.idl")));
    yvtest::write_file(m_dir + "/other/x.idl", yvtest::read_file(data("second.idl")));
    const std::string input = yvtest::read_file(m_dir + "/x.idl");
    struct Case {
        std::vector<std::string> args;
        std::string refused;
        std::string reason;
    } cases[] = {
        {{"-poa", "x.idl", "other/x.idl"}, "xS.hh", "it was written earlier in this run"},
        {{"-base", "-base", "x.idl"}, "x.hh", "it was written earlier in this run"},
        {{"-poa:-h.idl", "x.idl"}, "x.idl", "it is an input of this run"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.refused);
        auto r = yvidl(c.args);
        EXPECT_EQ(r.status, 99);
        EXPECT_NE(r.err.find("yvidl: error: " + c.refused + " is not replaced: " + c.reason + "\n"), std::string::npos)
            << r.err;
        EXPECT_EQ(yvtest::read_file(m_dir + "/x.idl"), input);
        if (yvtest::file_exists(m_dir + "/xS.hh")) {
            EXPECT_NE(yvtest::read_file(m_dir + "/xS.hh").find("POA_Bank"), std::string::npos);
        }
        for (const char* name : {"xS.hh", "xS.cxx", "x.hh", "x.cxx"})
            fs::remove(m_dir + "/" + name);
    }
}

TEST_F(DriverTest, OnlyRegularFilesAreRead)
{
    ASSERT_EQ(::mkfifo((m_dir + "/pipe.idl").c_str(), 0600), 0);
    yvtest::write_file(m_dir + "/includes_pipe.idl", "#include \"pipe.idl\"\ninterface I {};\n");
    for (const std::string& file : {std::string("pipe.idl"), std::string("/dev/zero"), std::string("/dev/null")}) {
        SCOPED_TRACE(file);
        // Under a time limit: a blocking open would otherwise hang the test.
        auto r = yvtest::run_command("timeout 20 " + command({"-poa", file}), m_dir);
        EXPECT_EQ(r.status, 1);
        EXPECT_EQ(r.err, "yvidl: error: input '" + file + "' is not a regular file; only regular files are read\n");
    }
    auto r = yvtest::run_command("timeout 20 " + command({"-poa", "includes_pipe.idl"}), m_dir);
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(has_located_errors(r.err, "includes_pipe.idl"));
    EXPECT_EQ(outputs(), (Names{"pipe.idl", "includes_pipe.idl"}));
}

} // namespace
