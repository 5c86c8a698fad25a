// The fixed text of both output files: file names, guard, includes of
// included IDL files, the export-macro block; open failures; settings that
// persist from one run of a generator into the next.
#include "GEN_POACxx.h"
#include "IDL_Frontend.h"
#include "PoaTestSupport.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <sstream>
#include <string>

namespace {

// The text that the base generator writes into both files for this plug-in.
std::string copyright()
{
    GEN_POACxx gen;
    std::ostringstream s;
    gen.output_copyright(s);
    return s.str();
}

std::string os_specific()
{
    GEN_POACxx gen;
    std::ostringstream s;
    gen.output_os_specific_header_stuff(s);
    return s.str();
}

std::string guard_of(const std::string& base)
{
    return GEN_CPlusPlus::make_legal_alpha_numeric_var(base).str();
}

std::string export_block(const std::string& m)
{
    return "\n\n#if !defined(" + m + ")\n#if defined(" + m + "_EXPORT)\n#define " + m + " YV_DECLSPEC_EXPORT\n#else\n" +
           "#define " + m + " YV_DECLSPEC_IMPORT\n#endif\n#endif\n\n";
}

// The whole header of an IDL file without declarations.
std::string empty_header(const std::string& base, const std::string& includes, const std::string& declspec = "")
{
    const std::string g = guard_of(base);
    return "#ifndef _YV_GUARD_" + g + "S_HH_\n#define _YV_GUARD_" + g + "S_HH_\n\n" + copyright() + includes + "\n\n" +
           declspec + os_specific() + "#endif\n";
}

const std::string STANDARD = "#include <omg/PortableServer.hh>\n"
                             "#include <zantic_sys/yvcxx.h>\n"
                             "#include <zantic_sys/yvstatichash.h>\n";

struct PreambleCase {
    const char* name;
    const char* idl;
    const char* options;
    std::map<std::string, std::string> files;
    std::string includes;    // every include line of the header
    std::string hh = "";     // the header's file name, when not testS.hh
};

std::ostream& operator<<(std::ostream& os, const PreambleCase& c) { return os << c.name; }

class HeaderPreamble : public testing::TestWithParam<PreambleCase> {};

TEST_P(HeaderPreamble, IsWrittenExactly)
{
    const PreambleCase& c = GetParam();
    poatest::PoaRun run = poatest::run_poa(c.idl, c.options, "test.idl", c.files, c.hh);
    ASSERT_TRUE(run.parsed) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.hh, empty_header("test", c.includes));
}

const std::map<std::string, std::string> INCLUDED = {
    {"bar.idl", "const long BAR = 1;\n"},          {"omg/orb.idl", "const long ORB = 1;\n"},
    {"orb.idl", "const long ORB2 = 1;\n"},         {"pre_sub_post.idl", "const long SUB = 1;\n"},
    {"defs.inc", "const long DEFS = 1;\n"},        {"v.idl/b.idl", "const long VB = 1;\n"},
    {"sys/base.idl", "const long BASE = 1;\n"},
};

const PreambleCase PREAMBLE_CASES[] = {
    {"no_includes", "const long X = 1;\n", nullptr, {}, STANDARD + "#include \"test.hh\"\n"},
    {"quoted_include", "#include \"bar.idl\"\n", nullptr, INCLUDED,
     STANDARD + "#include \"barS.hh\"\n#include \"test.hh\"\n"},
    {"orb_idl_with_flag_skipped", "#include <omg/orb.idl>\n#include \"bar.idl\"\n", nullptr, INCLUDED,
     STANDARD + "#include \"barS.hh\"\n#include \"test.hh\"\n"},
    {"orb_idl_kept_by_switch", "#include <omg/orb.idl>\n", "-xORB_S_HH", INCLUDED,
     STANDARD + "#include <omg/orbS.hh>\n#include \"test.hh\"\n"},
    {"orb_idl_without_flag_kept", "#include \"orb.idl\"\n", nullptr, INCLUDED,
     STANDARD + "#include \"orbS.hh\"\n#include \"test.hh\"\n"},
    {"pattern_anywhere_in_name", "#include \"pre_sub_post.idl\"\n#include \"bar.idl\"\n", "-msub", INCLUDED,
     STANDARD + "#include \"barS.hh\"\n#include \"test.hh\"\n"},
    {"pattern_for_angle_brackets", "#include <omg/orb.idl>\n#include \"bar.idl\"\n", "-xORB_S_HH:-momg/orb.idl",
     INCLUDED, STANDARD + "#include \"barS.hh\"\n#include \"test.hh\"\n"},
    {"name_without_idl", "#include \"defs.inc\"\n", nullptr, INCLUDED, STANDARD + "#include \"test.hh\"\n"},
    {"last_idl_replaced", "#include \"v.idl/b.idl\"\n", nullptr, INCLUDED,
     STANDARD + "#include \"v.idl/bS.hh\"\n#include \"test.hh\"\n"},
    {"flag_picks_standard_extension", "#include \"bar.idl\"\n#include <sys/base.idl>\n", "-hhpp", INCLUDED,
     STANDARD + "#include \"barS.hpp\"\n#include <sys/baseS.hh>\n#include \"test.hh\"\n", "testS.hpp"},
    {"extension_with_dot", "#include \"bar.idl\"\n", "-h_s.h", INCLUDED,
     STANDARD + "#include \"bar_s.h\"\n#include \"test.hh\"\n", "test_s.h"},
    {"messaging_by_callbacks", "const long X = 1;\n", "-xAMICallbacks", {},
     STANDARD + "#include <omg/MessagingS.hh>\n#include \"test.hh\"\n"},
    {"messaging_by_polling", "const long X = 1;\n", "-xAMIPolling", {},
     STANDARD + "#include <omg/MessagingS.hh>\n#include \"test.hh\"\n"},
    {"include_prefix", "#include \"bar.idl\"\n", "-ipfx", INCLUDED,
     STANDARD + "#include \"barS.hh\"\n#include <pfx/test.hh>\n"},
    {"client_extension", "const long X = 1;\n", "-bhpp", {}, STANDARD + "#include \"test.hpp\"\n"},
    {"client_extension_with_dot", "const long X = 1;\n", "-b.hpp", {}, STANDARD + "#include \"test.hpp\"\n"},
    {"tie_base", "const long X = 1;\n", "-xTIE", {},
     "#include <zantic_sys/poa_tie_base.h>\n"
     "#include <zantic_sys/yvcxx.h>\n"
     "#include <zantic_sys/yvstatichash.h>\n"
     "#include \"test.hh\"\n"},
};

INSTANTIATE_TEST_SUITE_P(Preamble, HeaderPreamble, testing::ValuesIn(PREAMBLE_CASES),
                         [](const testing::TestParamInfo<PreambleCase>& info) { return info.param.name; });

struct NameCase {
    const char* file;
    const char* options;
    const char* hh;
    const char* cxx;
    std::string base;        // the base name in the guard and client include
    std::string declspec;    // the export macro, when -d is given
};

std::ostream& operator<<(std::ostream& os, const NameCase& c) { return os << c.file << " " << (c.options ? c.options : ""); }

class FileNames : public testing::TestWithParam<NameCase> {};

TEST_P(FileNames, DeriveFromTheIdlFileName)
{
    const NameCase& c = GetParam();
    poatest::PoaRun run = poatest::run_poa("const long X = 1;\n", c.options, c.file, {}, c.hh, c.cxx);
    ASSERT_TRUE(run.parsed) << run.err;
    EXPECT_EQ(run.err, "");
    ASSERT_TRUE(run.hh_written) << c.hh;
    ASSERT_TRUE(run.cxx_written) << c.cxx;
    EXPECT_EQ(run.hh, empty_header(c.base, STANDARD + "#include \"" + c.base + ".hh\"\n",
                                   c.declspec.empty() ? "" : export_block(c.declspec)));
    EXPECT_EQ(run.cxx.rfind(copyright() + "\n#include \"" + c.hh + "\"\n#include <zantic_sys/tc_pod_structs.h>\n" +
                                "#include <zantic_sys/nmval.h>\n\n",
                            0),
              0u)
        << run.cxx;
}

const NameCase NAME_CASES[] = {
    {"foo.idl", nullptr, "fooS.hh", "fooS.cxx", "foo", ""},
    {"a.b.idl", nullptr, "a.bS.hh", "a.bS.cxx", "a.b", ""},
    {"foo.idl", "-h_s.hh:-c_s.cpp", "foo_s.hh", "foo_s.cpp", "foo", ""},
    {"foo.idl", "-hhpp:-scc", "fooS.hpp", "fooS.cc", "foo", ""},
    {"foo.idl", "-d", "fooS.hh", "fooS.cxx", "foo", "FOO_EXT_API"},
    {"my-file.idl", "-d", "my-fileS.hh", "my-fileS.cxx", "my-file", "MY_FILE_EXT_API"},
    {"foo.idl", "-dMy_Api", "fooS.hh", "fooS.cxx", "foo", "My_Api"},
};

INSTANTIATE_TEST_SUITE_P(Preamble, FileNames, testing::ValuesIn(NAME_CASES));

TEST(Preamble, ImplementationIncludesHeaderWithPrefixWithoutDirectory)
{
    poatest::PoaRun run = poatest::run_poa("const long X = 1;\n", "-ipfx:-Ohinc/", "test.idl", {{"inc/keep", ""}},
                                           "inc/testS.hh");
    ASSERT_TRUE(run.cxx_written);
    EXPECT_NE(run.cxx.find("\n#include <pfx/testS.hh>\n"), std::string::npos) << run.cxx;
}

// Parses `file` in `dir` (written there with `idl`).
std::unique_ptr<IDL_GlobalData> parse_in(const std::string& dir, const std::string& file, const std::string& idl)
{
    yvtest::write_file(dir + "/" + file, idl);
    IDL_FrontendOptions fe;
    fe.include_dirs.push_back(dir);
    return IDL_Frontend(fe).parse_file(dir + "/" + file);
}

// Runs in `dir` as working directory.
class InDirectory {
public:
    explicit InDirectory(const std::string& dir) : m_old(std::filesystem::current_path()) { std::filesystem::current_path(dir); }
    ~InDirectory() { std::filesystem::current_path(m_old); }

private:
    std::filesystem::path m_old;
};

// The "." given to the client extension and the export-macro name derived
// from the first file stay for the second run of the same generator.
TEST(Preamble, SecondRunOfOneGeneratorKeepsDerivedSettings)
{
    std::string dir = yvtest::make_temp_dir("poa-two-runs");
    auto first = parse_in(dir, "first.idl", "interface A { };\n");
    auto second = parse_in(dir, "second.idl", "interface B { };\n");
    ASSERT_TRUE(first && second);
    {
        InDirectory cd(dir);
        GEN_POACxx gen;
        gen.generate(first.get(), "-bhpp:-d");
        EXPECT_EQ(gen.client_header_ext(), YV_String(".hpp"));
        gen.generate(second.get(), nullptr);
        EXPECT_EQ(gen.client_header_ext(), YV_String(".hpp"));
    }
    std::string hh = yvtest::read_file(dir + "/secondS.hh");
    EXPECT_NE(hh.find("#include \"second.hpp\"\n"), std::string::npos) << hh;
    EXPECT_NE(hh.find(export_block("FIRST_EXT_API")), std::string::npos) << hh;
    EXPECT_NE(hh.find("class FIRST_EXT_API POA_B"), std::string::npos) << hh;
    EXPECT_TRUE(yvtest::file_exists(dir + "/secondS.cxx"));
    std::filesystem::remove_all(dir);
}

class OpenFailure : public testing::Test {
protected:
    void SetUp() override
    {
        m_dir = yvtest::make_temp_dir("poa-open");
        m_data = parse_in(m_dir, "test.idl", "interface A { };\n");
        ASSERT_TRUE(m_data);
    }
    void TearDown() override { std::filesystem::remove_all(m_dir); }

    std::string m_dir;
    std::unique_ptr<IDL_GlobalData> m_data;
};

TEST_F(OpenFailure, HeaderEndsTheProcessWith99)
{
    InDirectory cd(m_dir);
    EXPECT_EXIT(GEN_POACxx().generate(m_data.get(), "-Ohmissing/"), testing::ExitedWithCode(99),
                "yvidl: Error: Could not open missing/testS\\.hh for writing\\.\n");
    EXPECT_FALSE(yvtest::file_exists(m_dir + "/testS.cxx"));
}

TEST_F(OpenFailure, ImplementationEndsTheProcessWith99AfterACompleteHeader)
{
    InDirectory cd(m_dir);
    EXPECT_EXIT(GEN_POACxx().generate(m_data.get(), "-Ocmissing/"), testing::ExitedWithCode(99),
                "yvidl: error: could not open missing/testS\\.cxx for writing\\.\n");
    std::string hh = yvtest::read_file(m_dir + "/testS.hh");
    EXPECT_EQ(hh.substr(hh.size() - 7), "#endif\n");
}

} // namespace
