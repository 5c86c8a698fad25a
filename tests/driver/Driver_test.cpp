// End-to-end tests of the yvidl binary: command line, plug-in loading,
// diagnostics and exit status, output files.
#include "DriverTest.h"
#include "YV_Shlib_Init.h"
#include "idl_msg_header.h"

TEST_F(DriverTest, VersionAndHelpGoToStandardOutput)
{
    auto v = yvidl({"--version"});
    EXPECT_EQ(v.status, 0);
    EXPECT_EQ(v.out.rfind("yvidl ", 0), 0u) << v.out;
    EXPECT_EQ(lines_of(v.out).size(), 1u);
    EXPECT_EQ(v.err, "");

    for (const char* flag : {"--help", "-h"}) {
        SCOPED_TRACE(flag);
        auto h = yvidl({flag});
        EXPECT_EQ(h.status, 0);
        EXPECT_EQ(h.err, "");
        // The driver's own usage, the POA back end's usage, the -x switches.
        for (const char* expected :
             {"Usage: yvidl [options] file.idl...", "-I<dir>", "-D<name>[=<value>]", "-U<name>", "-E", "--version",
              "-poa[:<options>]", "-base[:<options>]", "\t\t\tGenerates code for the POA C++ OMG Mapping.\n",
              "-fmax-<name>=<n>", "includes = 10000", "inherited = 1000000", "typedef-depth = 256",
              "\t\t\t-xTIE           Generate POA TIE classes\n", "AMICallbacks", "NoNamespaces", "AMIPolling"})
            EXPECT_NE(h.out.find(expected), std::string::npos) << "missing: " << expected;
    }
    EXPECT_EQ(outputs(), Names{});
}

TEST_F(DriverTest, HelpNamesAMissingPlugin)
{
    auto h = yvidl({"--help"}, "YVIDL_PLUGIN_DIR=/nonexistent");
    EXPECT_EQ(h.status, 0);
    EXPECT_NE(h.out.find("Usage: yvidl"), std::string::npos);
    EXPECT_NE(h.out.find("/nonexistent/libyv_poa_cxx_ibe.so"), std::string::npos) << h.out;
}

TEST_F(DriverTest, PreprocessesWithDefinesAndIncludeDirs)
{
    for (const std::vector<std::string>& include : {std::vector<std::string>{"-I" + data("inc")},
                                                   std::vector<std::string>{"-I", data("inc")}}) {
        std::vector<std::string> args = include;
        for (const char* a : {"-E", "-DWANTED", "-DVALUE=42", "-DUNWANTED", "-UUNWANTED", "-poa"})
            args.emplace_back(a);
        args.push_back(data("macros.idl"));
        auto r = yvidl(args);
        EXPECT_EQ(r.status, 0) << r.err;
        EXPECT_NE(r.out.find("interface Wanted"), std::string::npos) << r.out;
        EXPECT_NE(r.out.find("interface NotUnwanted"), std::string::npos) << r.out;
        EXPECT_NE(r.out.find("42"), std::string::npos) << r.out;
        EXPECT_EQ(r.out.find("VALUE"), std::string::npos) << r.out;
        EXPECT_NE(r.out.find("FromIncludeDir"), std::string::npos) << r.out;
        // -E runs no back end.
        EXPECT_EQ(outputs(), Names{});
    }
    auto plain = yvidl({"-E", "-I" + data("inc"), "-DVALUE=1", data("macros.idl")});
    EXPECT_EQ(plain.status, 0) << plain.err;
    EXPECT_EQ(plain.out.find("interface Wanted"), std::string::npos);
}

TEST_F(DriverTest, ChecksWithoutBackEnd)
{
    auto r = yvidl({data("bank_small.idl"), data("second.idl")}, "YVIDL_PLUGIN_DIR=/nonexistent");
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(outputs(), Names{});
}

TEST_F(DriverTest, ErrorsAreLocatedAndLeaveNoOutput)
{
    for (const char* file : {"syntax_error.idl", "undeclared.idl"}) {
        SCOPED_TRACE(file);
        auto r = yvidl({"-poa", data(file)});
        EXPECT_NE(r.status, 0);
        EXPECT_EQ(r.status, 1);
        EXPECT_TRUE(has_located_errors(r.err, file));
        EXPECT_EQ(outputs(), Names{});
    }
    auto missing = yvidl({"-poa", data("macros.idl")});  // its #include is not found without -I
    EXPECT_EQ(missing.status, 1);
    EXPECT_TRUE(has_located_errors(missing.err, "macros.idl"));
    EXPECT_EQ(outputs(), Names{});
}

TEST_F(DriverTest, EveryFileGetsItsOutputAndErrorsDoNotStopTheRun)
{
    auto r = yvidl({"-poa", data("bank_small.idl"), data("syntax_error.idl"), data("second.idl")});
    EXPECT_EQ(r.status, 1);
    EXPECT_TRUE(has_located_errors(r.err, "syntax_error.idl"));
    // Outputs land in the current directory, not beside the input.
    EXPECT_EQ(outputs(), (Names{"bank_smallS.hh", "bank_smallS.cxx", "secondS.hh", "secondS.cxx"}));
    EXPECT_FALSE(yvtest::file_exists(data("bank_smallS.hh")));
}

TEST_F(DriverTest, BackEndsRunInCommandLineOrder)
{
    // The generator keeps its options from one run to the next, so the
    // second switch (no options) writes with the first one's extensions
    // only if the runs happen in the other order (and would then write the
    // same files twice, which is refused).
    auto r = yvidl({"-poa", "-poa:-hhpp:-ccpp", data("second.idl")});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(outputs(), (Names{"secondS.hh", "secondS.hpp", "secondS.cxx", "secondS.cpp"}));
}

TEST_F(DriverTest, OutputIsDeterministic)
{
    auto first = yvidl({"-poa:-xTIE", data("bank_small.idl")});
    ASSERT_EQ(first.status, 0) << first.err;
    const std::string hh = yvtest::read_file(m_dir + "/bank_smallS.hh");
    const std::string cxx = yvtest::read_file(m_dir + "/bank_smallS.cxx");
    EXPECT_NE(hh.find("POA_Bank"), std::string::npos);
    fs::remove(m_dir + "/bank_smallS.hh");
    fs::remove(m_dir + "/bank_smallS.cxx");
    auto second = yvidl({"-poa:-xTIE", data("bank_small.idl")});
    ASSERT_EQ(second.status, 0) << second.err;
    EXPECT_EQ(yvtest::read_file(m_dir + "/bank_smallS.hh"), hh);
    EXPECT_EQ(yvtest::read_file(m_dir + "/bank_smallS.cxx"), cxx);
}

TEST_F(DriverTest, BackEndErrorsSetTheExitStatus)
{
    auto r = yvidl({"-poa:-xNoNamespaces", data("reopened.idl")});
    EXPECT_EQ(r.status, 1) << r.err;
    EXPECT_NE(r.err.find(": error: POA Error."), std::string::npos) << r.err;
    EXPECT_TRUE(has_located_errors(r.err, "reopened.idl"));
    EXPECT_FALSE(yvtest::file_exists(m_dir + "/reopenedS.cxx"));
}

TEST_F(DriverTest, MissingPluginIsAClearError)
{
    auto r = yvidl({"-poa", data("second.idl")}, "YVIDL_PLUGIN_DIR=/nonexistent");
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("yvidl: error: "), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("/nonexistent/libyv_poa_cxx_ibe.so"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("No such file"), std::string::npos) << r.err;
    EXPECT_EQ(outputs(), Names{});

    // A library that is there but lacks the init entry point.
    auto noentry = yvidl({"-poa", data("second.idl")}, "YVIDL_PLUGIN_DIR=" + shell_quote(YV_NO_INIT_PLUGIN_DIR));
    EXPECT_EQ(noentry.status, 1);
    EXPECT_NE(noentry.err.find(std::string(YV_NO_INIT_PLUGIN_DIR) + "/libyv_poa_cxx_ibe.so has no entry point POACxxInit"),
              std::string::npos)
        << noentry.err;
    EXPECT_EQ(outputs(), Names{});
}

TEST_F(DriverTest, PluginDirectoryFromConfiguration)
{
    yvtest::write_file(m_dir + "/cfg/yvidl.cfg", "plugin-dir = /nowhere/configured\n");
    auto r = yvidl({"-poa", data("second.idl")}, "YVIDL_CONFIG=" + shell_quote(m_dir + "/cfg/yvidl.cfg"));
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("/nowhere/configured/libyv_poa_cxx_ibe.so"), std::string::npos) << r.err;
    // The environment variable wins over the configuration.
    auto env = yvidl({"-poa", data("second.idl")}, "YVIDL_CONFIG=" + shell_quote(m_dir + "/cfg/yvidl.cfg") +
                                                       " YVIDL_PLUGIN_DIR=" + shell_quote(yvtest::bin_dir() + "/../lib"));
    EXPECT_EQ(env.status, 0) << env.err;
}

TEST_F(DriverTest, BadCommandLinesAreUsageErrors)
{
    struct Case {
        std::vector<std::string> args;
        const char* message;
    } cases[] = {
        {{"-foo", "x.idl"}, "unknown option '-foo'"},
        {{"-poax", "x.idl"}, "unknown option '-poax'"},
        {{"-Efoo", "x.idl"}, "unknown option '-Efoo'"},
        {{"-", "x.idl"}, "unknown option '-'"},
        {{"x.idl", "-I"}, "option -I needs a directory"},
        {{"x.idl", "-D"}, "option -D needs a macro name"},
        {{"-D1X", "x.idl"}, "invalid macro name '1X'"},
        {{"-D=3", "x.idl"}, "invalid macro name ''"},
        {{"-Ua-b", "x.idl"}, "invalid macro name 'a-b'"},
        {{"-poa"}, "no input files"},
        {{}, "no input files"},
        {{"-" + std::string(100000, 'z')}, "unknown option '-zzz"},
        {{"-fmax-nope=3", "x.idl"}, "unknown limit '-fmax-nope=3'"},
        {{"-fmax-includes", "x.idl"}, "option '-fmax-includes' needs a positive number after '='"},
        {{"-fmax-includes=0", "x.idl"}, "option '-fmax-includes=0' needs a positive number after '='"},
        {{"-fmax-nesting=1e3", "x.idl"}, "option '-fmax-nesting=1e3' needs a positive number after '='"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        auto r = yvidl(c.args);
        EXPECT_EQ(r.status, 2);
        EXPECT_NE(r.err.find(std::string("yvidl: error: ") + c.message), std::string::npos) << r.err.substr(0, 300);
        EXPECT_LT(r.err.size(), 1000u);
    }
    EXPECT_EQ(outputs(), Names{});
}

TEST_F(DriverTest, LimitsAreSetOnTheCommandLine)
{
    yvtest::write_file(m_dir + "/deep.idl", yvtest::repeat("module a { module b { ", 10) + yvtest::repeat("};", 20) + "\n");
    auto low = yvidl({"-fmax-nesting=10", "deep.idl"});
    EXPECT_EQ(low.status, 1);
    EXPECT_NE(low.err.find("deep.idl:1:118: error: declarations nest more than 10 levels deep (-fmax-nesting=N raises "
                           "the limit)"),
              std::string::npos)
        << low.err;
    // The last one given counts; a number beyond any machine is no limit.
    auto raised = yvidl({"-fmax-nesting=10", "-fmax-nesting=99999999999999999999999", "deep.idl"});
    EXPECT_EQ(raised.status, 0) << raised.err;
}

TEST_F(DriverTest, UnreadableInputsAreReported)
{
    const std::string long_name(100000, 'n');
    for (const std::string& file : {std::string("absent.idl"), std::string(""), m_dir, long_name}) {
        auto r = yvidl({"-poa", file, data("second.idl")});
        EXPECT_EQ(r.status, 1);
        EXPECT_NE(r.err.find("yvidl: error: "), std::string::npos);
        EXPECT_TRUE(yvtest::file_exists(m_dir + "/secondS.hh"));
        fs::remove(m_dir + "/secondS.hh");
        fs::remove(m_dir + "/secondS.cxx");
    }
}

// Option texts of any shape reach the back end; none of them crashes the
// compiler. Unknown options are reported and the run goes on.
TEST_F(DriverTest, OptionTextsOfAnyShape)
{
    const std::vector<std::string> switches = {
        "-poa:", "-poa::", "-poa:-", "-poa:+", "-poa:-:+:--:++", "-poa:-x", "-poa:+x", "-poa:-xNoSuchSwitch",
        "-poa:-p", "-poa:-p-1", "-poa:-p99999999999999999999", "-poa:-p64", "-poa:-pjunk", "-poa:-m", "-poa:-d",
        "-poa:-i", "-poa:-O", "-poa:-Ox", "-poa:-h", "-poa:-c", "-poa:-b", "-poa:-q:-z:-9", "-poa:\xff\xfe:-\x01",
        "-poa:-x" + std::string(100000, 'T'), "-poa:" + std::string(100000, ':'), "-poa:-m" + std::string(100000, '*'),
    };
    for (const std::string& sw : switches) {
        SCOPED_TRACE(sw.substr(0, 40));
        auto r = yvidl({sw, data("second.idl")});
        EXPECT_TRUE(r.status == 0 || r.status == 1) << "status " << r.status << "\n" << r.err.substr(0, 500);
        for (const auto& e : fs::directory_iterator(m_dir))
            fs::remove_all(e.path());
    }
}

// Inputs of odd shapes and sizes are reported, never crash the compiler
// (the front end's own tests take deep nesting).
TEST_F(DriverTest, OddInputsNeverCrash)
{
    const std::string inputs[] = {
        "",
        std::string("\0\0\0\xff\xfe", 5),
        "interface",
        "module M {",
        "#include",
        "#include \"" + std::string(5000, 'x') + ".idl\"\n",
        "#include \"self.idl\"\n",
        "#define A A B\n#define B A\nconst long x = A;\n",
        "const string s = \"" + std::string(200000, 's') + "\";\n",
        "interface " + std::string(100000, 'I') + " {};\n",
        std::string(1000000, '{'),
    };
    int n = 0;
    for (const std::string& text : inputs) {
        SCOPED_TRACE("input " + std::to_string(n));
        yvtest::write_file(m_dir + "/self.idl", text);
        auto r = yvidl({"-poa", "self.idl"});
        EXPECT_TRUE(r.status == 0 || r.status == 1) << "status " << r.status << "\n" << r.err.substr(0, 500);
        auto e = yvidl({"-E", "self.idl"});
        EXPECT_TRUE(e.status == 0 || e.status == 1) << "status " << e.status << "\n" << e.err.substr(0, 500);
        ++n;
    }
}

TEST(Registration, LibrariesRegisterAtLoad)
{
    // Anything of the front end's makes this program load its library.
    EXPECT_EQ(idl_error_count(), 0);
    ASSERT_NE(YV_Shlib_Init::version_of("yv_ifc"), nullptr);
    ASSERT_NE(YV_Shlib_Init::version_of("yv_idl_cfe"), nullptr);
    EXPECT_STREQ(YV_Shlib_Init::version_of("yv_idl_cfe"), "3");
    auto all = YV_Shlib_Init::registered();
    ASSERT_GE(all.size(), 2u);
    EXPECT_EQ(all[0].name, "yv_ifc");
    EXPECT_EQ(all[1].name, "yv_idl_cfe");
}
