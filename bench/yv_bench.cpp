// yv_bench: times the compiler on a large generated IDL file.
//
//   yv_bench [--yvidl PATH] [--repeat N] [--interfaces N] [--keep DIR]
//            [--compare COMMAND ARGS...]
//
// Runs (a) the front end alone (no back-end switch) and (b) yvidl -poa, each
// N times (default 5), and prints the best time, the peak memory and, for
// (b), the bytes written. With --compare, the given command (everything
// after --compare, the IDL file appended) is timed the same way and the
// ratio to (b) printed. Exits non-zero when a run fails.
#include "YV_BenchIdl.h"
#include "YV_BenchRun.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Settings {
    std::string yvidl;
    std::string keep_dir;
    int repeat = 5;
    int interfaces = 2000;
    std::vector<std::string> compare;
};

std::string own_dir()
{
    std::error_code ec;
    fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    return ec ? std::string(".") : exe.parent_path().string();
}

bool parse(int argc, char** argv, Settings& s)
{
    s.yvidl = own_dir() + "/yvidl";
    for (int i = 1; i < argc; ++i) {
        const std::string a = argv[i];
        const bool has_value = i + 1 < argc;
        if (a == "--yvidl" && has_value)
            s.yvidl = argv[++i];
        else if (a == "--repeat" && has_value)
            s.repeat = std::max(1, std::atoi(argv[++i]));
        else if (a == "--interfaces" && has_value)
            s.interfaces = std::max(1, std::atoi(argv[++i]));
        else if (a == "--keep" && has_value)
            s.keep_dir = argv[++i];
        else if (a == "--compare" && has_value) {
            s.compare.assign(argv + i + 1, argv + argc);
            break;
        } else {
            std::cerr << "usage: yv_bench [--yvidl PATH] [--repeat N] [--interfaces N] [--keep DIR] "
                         "[--compare COMMAND ARGS...]\n";
            return false;
        }
    }
    return true;
}

// Removes everything in `dir` but the input file.
void clear_outputs(const fs::path& dir, const fs::path& keep)
{
    for (const auto& e : fs::directory_iterator(dir))
        if (e.path() != keep)
            fs::remove_all(e.path());
}

std::uintmax_t bytes_written(const fs::path& dir, const fs::path& input)
{
    std::uintmax_t total = 0;
    for (const auto& e : fs::directory_iterator(dir))
        if (e.path() != input && e.is_regular_file())
            total += e.file_size();
    return total;
}

void report(const char* label, const YV_BenchRun::Result& r, double target_s, long target_mib)
{
    const double mib = r.peak_kib / 1024.0;
    std::cout << std::left << std::setw(28) << label << std::right << std::fixed << std::setprecision(3)
              << std::setw(8) << r.seconds << " s" << std::setprecision(1) << std::setw(9) << mib << " MiB";
    if (target_s > 0)
        std::cout << "   (target < " << std::setprecision(2) << target_s << " s, < " << target_mib << " MiB: "
                  << (r.seconds < target_s && mib < target_mib ? "met" : "MISSED") << ")";
    std::cout << '\n';
}

bool failed(const char* label, const YV_BenchRun::Result& r)
{
    if (r.ok)
        return false;
    std::cerr << label << " failed (status " << r.status << ")\n" << r.errors.substr(0, 2000) << '\n';
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    Settings s;
    if (!parse(argc, argv, s))
        return 2;

    std::string dir_text = s.keep_dir;
    if (dir_text.empty()) {
        std::string pattern = (fs::temp_directory_path() / "yv_bench-XXXXXX").string();
        if (!mkdtemp(pattern.data())) {
            std::perror("mkdtemp");
            return 1;
        }
        dir_text = pattern;
    }
    const fs::path dir = fs::absolute(dir_text);
    fs::create_directories(dir);
    const fs::path input = dir / "bench.idl";

    YV_BenchIdl idl;
    idl.interfaces = s.interfaces;
    std::ostringstream text;
    idl.write(text);
    {
        std::ofstream out(input);
        out << text.str();
    }
    const std::string& written = text.str();
    const long lines = static_cast<long>(std::count(written.begin(), written.end(), '\n'));
    std::cout << "input: " << input.string() << ": " << lines << " lines, " << fs::file_size(input) << " bytes, "
              << idl.interfaces << " interfaces (" << idl.operations << " operations, " << idl.attributes
              << " attributes each, chains " << idl.chain_length << " deep)\n"
              << "best of " << s.repeat << " runs:\n";

    int status = 0;
    const auto frontend = YV_BenchRun::best_of(s.repeat, {s.yvidl, input.string()}, dir.string());
    if (failed("front end", frontend))
        status = 1;
    else
        report("(a) yvidl (front end only)", frontend, 0.15, 100);

    clear_outputs(dir, input);
    const auto poa = YV_BenchRun::best_of(s.repeat, {s.yvidl, "-poa", input.string()}, dir.string());
    if (failed("yvidl -poa", poa)) {
        status = 1;
    } else {
        report("(b) yvidl -poa", poa, 0.5, 200);
        std::cout << "    bytes written: " << bytes_written(dir, input) << '\n';
    }

    if (!s.compare.empty()) {
        clear_outputs(dir, input);
        std::vector<std::string> cmd = s.compare;
        cmd.push_back(input.string());
        const auto other = YV_BenchRun::best_of(s.repeat, cmd, dir.string());
        std::string label;
        for (const std::string& c : s.compare)
            label += (label.empty() ? "" : " ") + c;
        if (failed(label.c_str(), other)) {
            status = 1;
        } else {
            report(label.c_str(), other, 0, 0);
            std::cout << "    bytes written: " << bytes_written(dir, input) << '\n';
            if (poa.ok && poa.seconds > 0)
                std::cout << "    time ratio " << label << " / yvidl -poa: " << std::setprecision(2)
                          << other.seconds / poa.seconds << '\n';
        }
    }

    if (s.keep_dir.empty())
        fs::remove_all(dir);
    return status;
}
