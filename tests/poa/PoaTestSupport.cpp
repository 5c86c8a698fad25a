#include "PoaTestSupport.h"

#include "GEN_POACxx.h"
#include "IDL_Frontend.h"
#include "YV_TestSupport.h"
#include "idl_msg_header.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace poatest {

namespace {

// Keeps the last scratch directory so a failing test can be looked at.
std::string g_last_dir;

class WorkingDirectory {
public:
    explicit WorkingDirectory(const std::string& dir) : m_old(std::filesystem::current_path()) { std::filesystem::current_path(dir); }
    ~WorkingDirectory() { std::filesystem::current_path(m_old); }

private:
    std::filesystem::path m_old;
};

} // namespace

std::string golden_path(const std::string& name) { return std::string(YV_TEST_DATA_DIR) + "/" + name; }

PoaRun run_poa(const std::string& idl, const char* options, const std::string& file_name,
               const std::map<std::string, std::string>& extra_files, const std::string& hh_name,
               const std::string& cxx_name)
{
    if (!g_last_dir.empty())
        std::filesystem::remove_all(g_last_dir);
    PoaRun run;
    run.dir = g_last_dir = yvtest::make_temp_dir("poa");
    yvtest::write_file(run.dir + "/" + file_name, idl);
    for (const auto& f : extra_files)
        yvtest::write_file(run.dir + "/" + f.first, f.second);

    std::string base = file_name.substr(0, file_name.rfind('.'));
    std::string hh = hh_name.empty() ? base + "S.hh" : hh_name;
    std::string cxx = cxx_name.empty() ? base + "S.cxx" : cxx_name;

    IDL_FrontendOptions fe;
    fe.include_dirs.push_back(run.dir);
    IDL_Frontend frontend(fe);
    WorkingDirectory cd(run.dir);
    testing::internal::CaptureStderr();
    long before = idl_error_count();
    std::unique_ptr<IDL_GlobalData> data = frontend.parse_file(file_name);
    run.parsed = data != nullptr;
    if (data) {
        GEN_POACxx gen;
        gen.generate(data.get(), options);
    }
    run.errors = idl_error_count() - before;
    run.err = testing::internal::GetCapturedStderr();
    run.hh_written = yvtest::file_exists(hh);
    run.cxx_written = yvtest::file_exists(cxx);
    if (run.hh_written)
        run.hh = yvtest::read_file(hh);
    if (run.cxx_written)
        run.cxx = yvtest::read_file(cxx);
    return run;
}

std::size_t count(const std::string& text, const std::string& what)
{
    std::size_t n = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++n;
    return n;
}

} // namespace poatest
