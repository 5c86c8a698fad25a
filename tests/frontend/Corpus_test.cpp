// Every IDL file of the installed corpus: self-contained files are accepted,
// files that use names their includes do not define are rejected at that use.
#include "FrontendTestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace {

// The installed corpus; YV_IDL_CORPUS names another directory of the same
// layout (or a missing one, to see the test skipped).
std::string corpus_dir()
{
    const char* env = std::getenv("YV_IDL_CORPUS");
    return env ? env : "/usr/share/idl/omniORB";
}

// Files that cannot be compiled as they are, with the first error expected
// (file:line:column of the offending use, and the message). Most name
// interface-repository or policy types (CORBA::InterfaceDef, CORBA::Policy...)
// that only an include guarded by a macro this compiler does not define
// would bring in, or that no file here defines; three include IOP.idl,
// which is not installed.
struct Rejected {
    const char* file;
    const char* where;
    const char* message;
};

const Rejected kRejected[] = {
    {"COS/CosCompoundLifeCycle.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosContainment.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosExternalization.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosExternalizationContainment.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosExternalizationReference.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosGraphs.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosLifeCycleContainment.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosLifeCycleReference.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosQuery.idl", "COS/CosQuery.idl:29:17", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosReference.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosRelationships.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosStream.idl", "COS/CosRelationships.idl:48:11", "'CORBA::InterfaceDef' is not defined"},
    {"COS/CosTSPortability.idl", "COS/CosTSPortability.idl:25:14", "'CORBA::Environment' is not defined"},
    {"COS/DCE_CIOPSecurity.idl", "COS/DCE_CIOPSecurity.idl:10:1", "include file 'IOP.idl' not found"},
    {"COS/NRService.idl", "COS/Security.idl:28:18", "'CORBA::ServiceOption' is not defined"},
    {"COS/SECIOP.idl", "COS/SECIOP.idl:15:1", "include file 'IOP.idl' not found"},
    {"COS/SSLIOP.idl", "COS/SSLIOP.idl:10:1", "include file 'IOP.idl' not found"},
    {"COS/Security.idl", "COS/Security.idl:28:18", "'CORBA::ServiceOption' is not defined"},
    {"COS/SecurityAdmin.idl", "COS/Security.idl:28:18", "'CORBA::ServiceOption' is not defined"},
    {"COS/SecurityLevel1.idl", "COS/Security.idl:28:18", "'CORBA::ServiceOption' is not defined"},
    {"COS/SecurityLevel2.idl", "COS/Security.idl:28:18", "'CORBA::ServiceOption' is not defined"},
    {"COS/SecurityReplaceable.idl", "COS/Security.idl:28:18", "'CORBA::ServiceOption' is not defined"},
};

TEST(Corpus, EveryFileParsesOrFailsWhereExpected)
{
    const std::string corpus = corpus_dir();
    if (!std::filesystem::is_directory(corpus))
        GTEST_SKIP() << corpus << " is not installed";
    std::vector<std::string> files;
    for (const auto& e : std::filesystem::recursive_directory_iterator(corpus))
        if (e.is_regular_file() && e.path().extension() == ".idl")
            files.push_back(e.path().string());
    std::sort(files.begin(), files.end());
    ASSERT_FALSE(files.empty());
    std::vector<std::string> dirs{corpus, corpus + "/COS"};
    for (const std::string& f : files) {
        fetest::Parsed p = fetest::parse_file(f, dirs);
        std::string rel = f.substr(corpus.size() + 1);
        const Rejected* r = nullptr;
        for (const Rejected& x : kRejected)
            if (rel == x.file)
                r = &x;
        if (!r) {
            EXPECT_TRUE(p.data != nullptr) << rel << ":\n" << p.err;
            EXPECT_EQ(p.errors, 0) << rel;
            continue;
        }
        EXPECT_TRUE(p.data == nullptr) << rel;
        EXPECT_GT(p.errors, 0) << rel;
        std::string first = p.err.substr(0, p.err.find('\n'));
        EXPECT_NE(first.find(r->where), std::string::npos) << rel << ": " << first;
        EXPECT_NE(first.find(r->message), std::string::npos) << rel << ": " << first;
    }
}

} // namespace
