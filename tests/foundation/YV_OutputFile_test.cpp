// The output file: all or nothing under the final name, write errors with
// the system's reason, and names a run may not write twice.
#include "YV_OutputFile.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <sstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

class OutputFileTest : public testing::Test {
protected:
    void SetUp() override
    {
        YV_OutputFile::forget_files();
        m_dir = yvtest::make_temp_dir("outfile");
    }
    void TearDown() override
    {
        YV_OutputFile::forget_files();
        fs::remove_all(m_dir);
    }

    std::string path(const std::string& name) const { return m_dir + "/" + name; }

    // The names in the directory; temporary files would show here.
    std::set<std::string> names() const
    {
        std::set<std::string> out;
        for (const auto& e : fs::directory_iterator(m_dir))
            out.insert(e.path().filename().string());
        return out;
    }

    std::string m_dir;
};

TEST_F(OutputFileTest, TextAppearsUnderItsNameOnlyWhenCommitted)
{
    YV_OutputFile out;
    out.open(path("a.hh"));
    ASSERT_TRUE(out) << out.error();
    out << std::string(3 << 20, 'x') << "end\n";  // more than the buffer holds
    EXPECT_FALSE(yvtest::file_exists(path("a.hh")));
    EXPECT_TRUE(out.commit()) << out.error();
    EXPECT_EQ(yvtest::read_file(path("a.hh")), std::string(3 << 20, 'x') + "end\n");
    EXPECT_EQ(names(), std::set<std::string>{"a.hh"});
}

// Text copied into the buffer directly and text inserted through the stream
// keep their order across many buffer flushes, and size() counts both.
TEST_F(OutputFileTest, DirectAppendsAndStreamInsertsKeepTheirOrder)
{
    YV_OutputFile out;
    out.open(path("b.cxx"));
    ASSERT_TRUE(out) << out.error();
    YV_TextBuffer* direct = YV_TextBuffer::of(out);
    ASSERT_NE(direct, nullptr);
    std::string expected;
    for (int i = 0; i < 100000; ++i) {
        const std::string piece = std::to_string(i) + (i % 7 == 0 ? std::string(100, '.') : ";");
        if (i % 3 == 0)
            out << piece;
        else
            direct->append(piece.data(), piece.size());
        expected += piece;
        if (i % 9999 == 0) {
            EXPECT_EQ(out.size(), expected.size());
        }
    }
    direct->append(expected.data(), expected.size());  // larger than the buffer
    expected += expected;
    EXPECT_EQ(out.size(), expected.size());
    EXPECT_TRUE(out.commit()) << out.error();
    EXPECT_EQ(yvtest::read_file(path("b.cxx")), expected);
}

// Writers fill a buffer directly only while it is the stream's own text
// buffer: not another stream's, not after the buffer was replaced.
TEST_F(OutputFileTest, DirectFillingOnlyThroughTheFilesOwnBuffer)
{
    std::ostringstream other;
    EXPECT_EQ(YV_TextBuffer::of(other), nullptr);
    YV_OutputFile out;
    ASSERT_NE(YV_TextBuffer::of(out), nullptr);
    std::streambuf* own = out.rdbuf(other.rdbuf());
    EXPECT_EQ(YV_TextBuffer::of(out), nullptr);
    out.rdbuf(own);
    EXPECT_NE(YV_TextBuffer::of(out), nullptr);
}

TEST_F(OutputFileTest, AbandonedFileLeavesTheEarlierOneAndNoTrace)
{
    yvtest::write_file(path("a.hh"), "good\n");
    {
        YV_OutputFile out;
        out.open(path("a.hh"));
        out << std::string(3 << 20, 'x');
    }
    {
        YV_OutputFile out;
        out.open(path("a.hh"));
        out << "partial";
        out.discard();
        EXPECT_FALSE(out.is_open());
    }
    EXPECT_EQ(yvtest::read_file(path("a.hh")), "good\n");
    EXPECT_EQ(names(), std::set<std::string>{"a.hh"});
}

TEST_F(OutputFileTest, WriteErrorsFailTheCommitWithTheSystemsReason)
{
    // Small and large texts: the error shows at the final flush or in the
    // middle of writing.
    for (std::size_t size : {std::size_t(10), std::size_t(5) << 20}) {
        SCOPED_TRACE(size);
        fs::remove(path("full.hh"));
        fs::create_symlink("/dev/full", path("full.hh"));
        YV_OutputFile out;
        out.open(path("full.hh"));
        ASSERT_TRUE(out) << out.error();
        out << std::string(size, 'x');
        EXPECT_FALSE(out.commit());
        EXPECT_EQ(out.error(), "No space left on device");
        EXPECT_TRUE(fs::is_symlink(path("full.hh")));
    }
}

TEST_F(OutputFileTest, CommitOrExitEndsTheProcessWith99)
{
    fs::create_symlink("/dev/full", path("full.cxx"));
    const std::string name = path("full.cxx");
    EXPECT_EXIT(
        {
            YV_OutputFile out;
            out.open(name);
            out << "text";
            out.commit_or_exit("yvidl");
        },
        testing::ExitedWithCode(99), "yvidl: error: cannot write .*/full\\.cxx: No space left on device\n");
}

TEST_F(OutputFileTest, LinksAreFollowedAndKept)
{
    yvtest::write_file(path("real/a.hh"), "old\n");
    fs::create_symlink("real/a.hh", path("link.hh"));
    YV_OutputFile out;
    out.open(path("link.hh"));
    out << "new\n";
    ASSERT_TRUE(out.commit()) << out.error();
    EXPECT_TRUE(fs::is_symlink(path("link.hh")));
    EXPECT_EQ(yvtest::read_file(path("real/a.hh")), "new\n");
}

TEST_F(OutputFileTest, OpenFailuresNameTheReasonAndNeverBlock)
{
    ASSERT_EQ(::mkfifo(path("pipe.hh").c_str(), 0600), 0);
    struct Case {
        std::string path;
        std::string reason;
    } cases[] = {
        {path("missing/a.hh"), "No such file or directory"},
        {path("pipe.hh"), "No such device or address"},  // a pipe nobody reads
        {m_dir, "Is a directory"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.path);
        YV_OutputFile out;
        out.open(c.path);
        EXPECT_FALSE(out);
        EXPECT_FALSE(out.refused());
        EXPECT_EQ(out.error(), c.reason);
        EXPECT_FALSE(out.commit());
    }
    EXPECT_EQ(names(), std::set<std::string>{"pipe.hh"});
}

TEST_F(OutputFileTest, ARunWritesANameOnceAndNeverOverAnInput)
{
    yvtest::write_file(path("input.idl"), "interface I {};\n");
    fs::create_directories(path("sub"));
    YV_OutputFile::protect(path("sub/../input.idl"));
    {
        YV_OutputFile first;
        first.open(path("a.hh"));
        first << "first\n";
        ASSERT_TRUE(first.commit());
    }
    // Other spellings of the same files.
    for (const std::string& name : {path("a.hh"), path("sub/../a.hh"), path("input.idl")}) {
        SCOPED_TRACE(name);
        YV_OutputFile again;
        again.open(name);
        EXPECT_FALSE(again);
        EXPECT_TRUE(again.refused());
    }
    EXPECT_EQ(yvtest::read_file(path("a.hh")), "first\n");
    EXPECT_EQ(yvtest::read_file(path("input.idl")), "interface I {};\n");

    EXPECT_EXIT(
        {
            YV_OutputFile out;
            out.open_or_exit(path("a.hh"), "yvidl", ": Error: Could not open ");
        },
        testing::ExitedWithCode(99),
        "yvidl: error: .*/a\\.hh is not replaced: it was written earlier in this run\n"
        "yvidl: Error: Could not open .*/a\\.hh for writing\\.\n");

    // A new run may write it again.
    YV_OutputFile::forget_files();
    YV_OutputFile later;
    later.open(path("a.hh"));
    EXPECT_TRUE(later);
}

TEST_F(OutputFileTest, NoRoomForATemporaryNameFallsBackOnTheFileItself)
{
    // A name so long that the temporary file's longer one is refused.
    const std::string name = std::string(250, 'n') + ".hh";
    yvtest::write_file(path(name), "old\n");
    YV_OutputFile out;
    out.open(path(name));
    out << "new\n";
    EXPECT_TRUE(out.commit()) << out.error();
    EXPECT_EQ(yvtest::read_file(path(name)), "new\n");
    EXPECT_EQ(names(), std::set<std::string>{name});
}

} // namespace
