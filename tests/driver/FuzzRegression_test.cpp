// Inputs that the fuzz targets found hanging, crashing or exhausting
// memory, replayed through the compiler as the target that found them ran
// them (docs/fuzzing.md): the compiler must end normally, in time, with no
// sanitizer report.
#include "DriverTest.h"
#include "FuzzSwitches.h"

namespace {

std::vector<std::string> saved_inputs()
{
    std::vector<std::string> names;
    for (const auto& e : fs::directory_iterator(data("fuzz")))
        names.push_back(e.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

TEST_F(DriverTest, FuzzFindingsEndNormally)
{
    const std::vector<std::string> inputs = saved_inputs();
    ASSERT_FALSE(inputs.empty());
    for (const std::string& name : inputs) {
        SCOPED_TRACE(name);
        std::string text = yvtest::read_file(data("fuzz/" + name));
        std::vector<std::string> args = {"-I" + yvtest::source_dir() + "/fuzz/include"};
        if (name.rfind("preprocessor-", 0) == 0) {
            args.push_back("-E");
        } else if (name.rfind("pipeline-", 0) == 0) {
            ASSERT_FALSE(text.empty());
            const std::string options = yvfuzz::options_of(static_cast<std::uint8_t>(text[0]));
            text.erase(0, 1);
            args.push_back("-base:" + options);
            args.push_back("-poa:" + options);
        } else {
            ASSERT_EQ(name.rfind("frontend-", 0), 0u) << "named after no fuzz target";
        }
        yvtest::write_file(m_dir + "/fuzz.idl", text);
        args.push_back("fuzz.idl");
        auto r = yvtest::run_command("timeout 120 " + command(args) + " >/dev/null", m_dir);
        EXPECT_TRUE(r.status == 0 || r.status == 1 || r.status == 99) << "status " << r.status;
        EXPECT_EQ(r.err.find("Sanitizer"), std::string::npos) << r.err.substr(0, 3000);
        EXPECT_EQ(r.err.find("runtime error:"), std::string::npos) << r.err.substr(0, 3000);
        for (const auto& e : fs::directory_iterator(m_dir))
            fs::remove(e.path());
    }
}

} // namespace
