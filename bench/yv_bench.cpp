// yv_bench: times the compiler on a large generated IDL file.
//
//   yv_bench [--yvidl PATH] [--repeat N] [--interfaces N] [--scale K]
//            [--keep DIR] [--compare COMMAND ARGS...]
//
// Runs (a) the front end alone (no back-end switch), (b) yvidl -poa and
// (c) yvidl -base -poa, each N times (default 5), and prints the best time,
// the peak memory and, for (b) and (c), the bytes written. Then (c) on an
// input K times as large (default 4; 0 skips it), with the ratio of the
// times. With --compare, the given command (everything after --compare, the
// IDL file appended) is timed the same way on the first input and the ratio
// of its time to (c)'s printed. Exits non-zero when a run fails.
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
    int scale = 4;
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
        else if (a == "--scale" && has_value)
            s.scale = std::max(0, std::atoi(argv[++i]));
        else if (a == "--keep" && has_value)
            s.keep_dir = argv[++i];
        else if (a == "--compare" && has_value) {
            s.compare.assign(argv + i + 1, argv + argc);
            break;
        } else {
            std::cerr << "usage: yv_bench [--yvidl PATH] [--repeat N] [--interfaces N] [--scale K] [--keep DIR] "
                         "[--compare COMMAND ARGS...]\n";
            return false;
        }
    }
    return true;
}

std::uintmax_t bytes_written(const fs::path& dir, const fs::path& input)
{
    std::uintmax_t total = 0;
    for (const auto& e : fs::directory_iterator(dir))
        if (e.path() != input && e.path().extension() != ".idl" && e.is_regular_file())
            total += e.file_size();
    return total;
}

void report(const char* label, const YV_BenchRun::Result& r, double target_s, long target_mib)
{
    const double mib = r.peak_kib / 1024.0;
    std::cout << std::left << std::setw(30) << label << std::right << std::fixed << std::setprecision(3)
              << std::setw(8) << r.seconds << " s" << std::setw(8) << r.cpu_seconds << " s cpu" << std::setprecision(1)
              << std::setw(9) << mib << " MiB";
    if (target_s > 0 || target_mib > 0) {
        const bool met = (target_s <= 0 || r.seconds < target_s) && mib < target_mib;
        std::cout << "   (target";
        if (target_s > 0)
            std::cout << " < " << std::setprecision(2) << target_s << " s,";
        std::cout << " < " << target_mib << " MiB: " << (met ? "met" : "MISSED") << ")";
    }
    std::cout << '\n';
}

void report_ratio(const std::string& what, double ratio, const char* relation, double target)
{
    const bool met = relation[0] == '>' ? ratio >= target : ratio <= target;
    std::cout << "    " << what << ": " << std::fixed << std::setprecision(2) << ratio << "   (target " << relation
              << " " << target << ": " << (met ? "met" : "MISSED") << ")\n";
}

bool failed(const char* label, const YV_BenchRun::Result& r)
{
    if (r.ok)
        return false;
    std::cerr << label << " failed (status " << r.status << ")\n" << r.errors.substr(0, 2000) << '\n';
    return true;
}

// Writes the benchmark IDL of `interfaces` interfaces to `path` and
// describes it.
void write_input(const fs::path& path, int interfaces)
{
    YV_BenchIdl idl;
    idl.interfaces = interfaces;
    std::ostringstream text;
    idl.write(text);
    const std::string& written = text.str();
    {
        std::ofstream out(path);
        out << written;
    }
    const long lines = static_cast<long>(std::count(written.begin(), written.end(), '\n'));
    std::cout << "input: " << path.string() << ": " << lines << " lines, " << written.size() << " bytes, "
              << idl.interfaces << " interfaces (" << idl.operations << " operations, " << idl.attributes
              << " attributes each, chains " << idl.chain_length << " deep)\n";
}

// Runs `args` followed by `input` in `dir` (emptied of earlier outputs
// first) and reports it; false when it failed.
bool measure(const Settings& s, const char* label, std::vector<std::string> args, const fs::path& dir,
             const fs::path& input, YV_BenchRun::Result& r, double target_s = 0, long target_mib = 0,
             bool show_bytes = true)
{
    for (const auto& e : fs::directory_iterator(dir))
        if (e.path().extension() != ".idl")
            fs::remove_all(e.path());
    args.push_back(input.string());
    r = YV_BenchRun::best_of(s.repeat, args, dir.string());
    if (failed(label, r))
        return false;
    report(label, r, target_s, target_mib);
    if (show_bytes)
        std::cout << "    bytes written: " << bytes_written(dir, input) << '\n';
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    Settings s;
    if (!parse(argc, argv, s))
        return 2;

    const std::string dir_text = YV_BenchRun::work_dir(s.keep_dir, "yv_bench");
    if (dir_text.empty())
        return 1;
    const fs::path dir = dir_text;
    fs::create_directories(dir);
    const fs::path input = dir / "bench.idl";
    write_input(input, s.interfaces);
    std::cout << "best of " << s.repeat << " runs (wall, cpu, peak memory):\n";

    int status = 0;
    YV_BenchRun::Result frontend, poa, both, scaled, other;
    if (!measure(s, "(a) yvidl (front end only)", {s.yvidl}, dir, input, frontend, 0.15, 100, false))
        status = 1;
    if (!measure(s, "(b) yvidl -poa", {s.yvidl, "-poa"}, dir, input, poa, 0.5, 200))
        status = 1;
    if (!measure(s, "(c) yvidl -base -poa", {s.yvidl, "-base", "-poa"}, dir, input, both, 0, 64))
        status = 1;

    if (s.scale > 1 && both.ok) {
        const fs::path large = dir / "bench_large.idl";
        write_input(large, s.interfaces * s.scale);
        const std::string label = "(d) yvidl -base -poa, x" + std::to_string(s.scale);
        if (!measure(s, label.c_str(), {s.yvidl, "-base", "-poa"}, dir, large, scaled)) {
            status = 1;
        } else {
            report_ratio("time ratio (d) / (c)", scaled.seconds / both.seconds, "<=", s.scale * 1.05);
            report_ratio("cpu ratio (d) / (c)", scaled.cpu_seconds / both.cpu_seconds, "<=", s.scale * 1.05);
        }
        fs::remove(large);
    }

    if (!s.compare.empty()) {
        std::string label;
        for (const std::string& c : s.compare)
            label += (label.empty() ? "" : " ") + c;
        if (!measure(s, label.c_str(), s.compare, dir, input, other)) {
            status = 1;
        } else if (both.ok && both.seconds > 0) {
            report_ratio("time ratio " + label + " / (c)", other.seconds / both.seconds, ">=", 20);
            report_ratio("cpu ratio " + label + " / (c)", other.cpu_seconds / both.cpu_seconds, ">=", 20);
        }
    }

    if (s.keep_dir.empty())
        fs::remove_all(dir);
    return status;
}
