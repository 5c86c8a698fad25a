// Every name the runtime defines in its CORBA namespace is one the client
// mapping takes from the runtime when IDL declares it: read from the
// runtime's headers, so that a name added there and not to the list fails.
#include "CxxRuntimeNames.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <set>
#include <string>

namespace {

std::set<std::string> corba_names_of_runtime()
{
    const std::filesystem::path include = std::filesystem::path(YV_TEST_DATA_DIR) / "../../../runtime/include";
    // Declarations at the level of namespace CORBA: written unindented
    // between its opening and its closing comment.
    const std::regex type(R"(^(?:class|struct|enum)\s+(\w+))");
    const std::regex alias(R"(^typedef\s.*?(\w+)\s*;)");
    const std::regex constant(R"(^(?:extern\s+)?const\s+\w+\s+(\w+))");
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(include)) {
        const std::string ext = entry.path().extension().string();
        if (ext != ".h" && ext != ".hh")
            continue;
        std::ifstream in(entry.path());
        bool inside = false;
        for (std::string line; std::getline(in, line);) {
            if (line.rfind("namespace CORBA {", 0) == 0)
                inside = true;
            else if (line.rfind("} // namespace CORBA", 0) == 0)
                inside = false;
            std::smatch m;
            if (inside && (std::regex_search(line, m, type) || std::regex_search(line, m, alias) ||
                           std::regex_search(line, m, constant)))
                names.insert(m[1]);
        }
    }
    return names;
}

bool derived_form(const std::string& name)
{
    for (const char* suffix : {"_ptr", "_var", "_out"})
        if (name.size() > 4 && name.compare(name.size() - 4, 4, suffix) == 0)
            return true;
    return name[0] == '_' || name.rfind("YV", 0) == 0;
}

TEST(RuntimeNames, EveryCorbaNameOfTheRuntimeIsTakenFromIt)
{
    const std::set<std::string> names = corba_names_of_runtime();
    // The headers were found and read.
    ASSERT_GT(names.count("TCKind"), 0u);
    ASSERT_GT(names.count("ORB"), 0u);
    for (const std::string& n : names) {
        if (!derived_form(n)) {
            EXPECT_NE(CxxRuntimeNames::header_of("CORBA::" + n), nullptr) << "CORBA::" << n;
        }
    }
    // The system exceptions come from their own list.
    EXPECT_NE(CxxRuntimeNames::header_of("CORBA::BAD_PARAM"), nullptr);
    EXPECT_EQ(CxxRuntimeNames::header_of("CORBA::StructMember"), nullptr);
}

} // namespace
