// The client header and client source of whole IDL files, compared with one
// golden file per scenario (every type kind; interface graphs; value types;
// reply handlers; declarations of an included file), and the run's file
// rules: no source file without definitions, include prefix, nothing
// written after an error, byte-identical output.
#include "GEN_CPlusPlus.h"
#include "IDL_Frontend.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace {

struct ClientRun {
    bool parsed = false;
    std::string hh;       // "" when not written
    std::string cxx;      // "" when not written
    bool cxx_written = false;
    std::string err;
};

std::string data_path(const std::string& name) { return std::string(YV_TEST_DATA_DIR) + "/" + name; }

// Parses `file` (with the test data folder as include directory) and runs
// a fresh base generator with `options` writing into a scratch directory.
ClientRun run_client(const std::string& file, const std::string& options = "", const std::string& idl_text = "")
{
    ClientRun r;
    const std::string dir = yvtest::make_temp_dir("cxxclient");
    IDL_FrontendOptions fo;
    fo.include_dirs.push_back(YV_TEST_DATA_DIR);
    IDL_Frontend fe(fo);
    std::unique_ptr<IDL_GlobalData> data =
        idl_text.empty() ? fe.parse_file(data_path(file)) : fe.parse_text(file, idl_text);
    r.parsed = data != nullptr;
    if (data) {
        GEN_CPlusPlus gen;
        const std::string all = "-Oh" + dir + ":-Oc" + dir + (options.empty() ? "" : ":" + options);
        ::testing::internal::CaptureStderr();
        gen.generate(data.get(), all.c_str());
        r.err = ::testing::internal::GetCapturedStderr();
        const std::string base = file.substr(0, file.rfind('.'));
        r.hh = yvtest::read_file(dir + "/" + base + ".hh");
        r.cxx_written = yvtest::file_exists(dir + "/" + base + ".cxx");
        r.cxx = yvtest::read_file(dir + "/" + base + ".cxx");
    }
    std::filesystem::remove_all(dir);
    return r;
}

struct Scenario {
    const char* file;
    const char* options;
    const char* golden;
};

const Scenario scenarios[] = {
    {"all_kinds.idl", "", "all_kinds.golden"},
    {"interfaces.idl", "", "interfaces.golden"},
    {"values.idl", "", "values.golden"},
    {"ami.idl", "-xAMICallbacks", "ami.golden"},
    {"includes.idl", "-d", "includes.golden"},
};

TEST(ClientHeaderTest, GoldenScenarios)
{
    for (const Scenario& s : scenarios) {
        SCOPED_TRACE(s.file);
        const ClientRun r = run_client(s.file, s.options);
        ASSERT_TRUE(r.parsed);
        EXPECT_EQ(r.err, "");
        const std::string text = "==== header\n" + r.hh + "==== source\n" + r.cxx;
        const std::string diff = yvtest::compare_golden(data_path("golden/" + std::string(s.golden)), text);
        EXPECT_EQ(diff, "");
    }
}

// IDL as other projects write it: lines the header must hold and lines it
// must not (the compile test builds the same files).
struct RealWorldCase {
    const char* file;
    std::vector<std::string> present;
    std::vector<std::string> absent;
};

const RealWorldCase real_world[] = {
    {"peers_accept.idl",
     {"const CORBA::Char NoChar = '\\000';", "public virtual PeersAccept::Base"},
     {}},
    {"pidl_include.idl", {"#include \"shared_types.hh\"\n"}, {}},
    // Declarations of a file included inside a module body stand there;
    // no header is included for it.
    {"body_include.idl", {"    typedef CORBA::Long Ticks;\n", "        Clock::Ticks from;\n"}, {"module_body"}},
    // A long parameter must not become the string T that Base declares.
    {"nearer_names.idl",
     {"        ::T value\n", "    virtual ::T\n", "                ::dds::Sample outer;\n"},
     {"        T value\n", " dds::Sample outer"}},
};

TEST(ClientHeaderTest, RealWorldCases)
{
    for (const RealWorldCase& c : real_world) {
        SCOPED_TRACE(c.file);
        const ClientRun r = run_client(c.file);
        ASSERT_TRUE(r.parsed);
        EXPECT_EQ(r.err, "");
        for (const std::string& line : c.present)
            EXPECT_NE(r.hh.find(line), std::string::npos) << "missing: " << line;
        for (const std::string& line : c.absent)
            EXPECT_EQ(r.hh.find(line), std::string::npos) << "present: " << line;
    }
}

TEST(ClientHeaderTest, OutputIsByteIdenticalFromRunToRun)
{
    const ClientRun first = run_client("values.idl", "-xAMICallbacks");
    const ClientRun second = run_client("values.idl", "-xAMICallbacks");
    EXPECT_EQ(first.hh, second.hh);
    EXPECT_EQ(first.cxx, second.cxx);
}

TEST(ClientHeaderTest, NoSourceFileWithoutDefinitions)
{
    const ClientRun r = run_client("consts.idl", "", "module M { const long N = 1; interface Fwd; };\n");
    ASSERT_TRUE(r.parsed);
    EXPECT_NE(r.hh.find("const CORBA::Long N = 1;"), std::string::npos);
    EXPECT_FALSE(r.cxx_written);
}

TEST(ClientHeaderTest, SourceIncludesTheHeaderWithThePrefix)
{
    const ClientRun r = run_client("pfx.idl", "-iinc/gen:-hhpp", "interface I { void op(); };\n");
    ASSERT_TRUE(r.cxx_written);
    EXPECT_NE(r.cxx.find("#include <inc/gen/pfx.hpp>\n"), std::string::npos);
}

TEST(ClientHeaderTest, ReopenedModuleWithoutNamespacesWritesNothing)
{
    const ClientRun r = run_client("reopen.idl", "-xNoNamespaces",
                                   "module M { struct A { long x; }; };\nmodule M { struct B { long y; }; };\n");
    ASSERT_TRUE(r.parsed);
    EXPECT_NE(r.err.find("Module M cannot be reopened"), std::string::npos) << r.err;
    EXPECT_EQ(r.hh, "");
    EXPECT_FALSE(r.cxx_written);
}

TEST(ClientHeaderTest, ModulesBecomeClassesWithoutNamespaces)
{
    const ClientRun r = run_client("classes.idl", "-xNoNamespaces",
                                   "module M { typedef long A[2]; const long N = 2; interface I {}; };\n");
    ASSERT_TRUE(r.parsed);
    EXPECT_NE(r.hh.find("class M\n{\n  public:\n"), std::string::npos);
    EXPECT_NE(r.hh.find("    static A_slice* A_alloc()"), std::string::npos);
    EXPECT_NE(r.hh.find("    static constexpr CORBA::Long N = 2;"), std::string::npos);
    EXPECT_NE(r.hh.find("    static const CORBA::TypeCode_ptr _tc_I;"), std::string::npos);
}

TEST(ClientHeaderTest, RuntimeDefinedDeclarationsComeFromTheRuntime)
{
    const ClientRun r = run_client("messaging.idl", "",
                                   "module Messaging { interface ReplyHandler {}; valuetype ExceptionHolder {}; };\n"
                                   "module PortableServer { interface POA; };\n");
    ASSERT_TRUE(r.parsed);
    EXPECT_NE(r.hh.find("#include <omg/PortableServer.hh>\n#include <omg/Messaging.hh>\n"), std::string::npos);
    EXPECT_NE(r.hh.find("// Messaging::ReplyHandler: defined by the runtime"), std::string::npos);
    EXPECT_EQ(r.hh.find("class ReplyHandler :"), std::string::npos);
    EXPECT_NE(r.hh.find("typedef POA* POA_ptr;"), std::string::npos); // the forward declaration stays
    EXPECT_FALSE(r.cxx_written);
}

} // namespace
