// yv_gencode_bench: what the generated C++ costs its user. For the
// benchmark IDL (YV_BenchIdl) of each given number of interfaces, it runs
// `yvidl -base -poa` and `omniidl -bcxx` on the same file, compiles every
// source file each writes with `<cxx> -O2 -c` (each side with only the
// include path it needs), and prints, per side, the compiler's cpu time
// (user + system of the child, the best of N runs per file, summed over the
// files), the object size (text + data + bss, as `size` counts them) and
// the object files' size, then the ratios yvidl / omniidl.
//
//   yv_gencode_bench [--yvidl PATH] [--runtime-include DIR] [--omniidl PATH]
//                    [--cxx COMPILER] [--repeat N] [--interfaces N]...
//                    [--keep DIR]
//
// Exits non-zero when a step fails.
#include "../YV_BenchIdl.h"
#include "../YV_BenchRun.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

struct Settings {
    std::string yvidl = YV_YVIDL_PATH;
    std::string runtime_include = YV_RUNTIME_INCLUDE_DIR;
    std::string omniidl = "omniidl";
    std::string cxx = "g++";
    std::string keep_dir;
    int repeat = 3;
    std::vector<int> interfaces;
};

// What one side's generated code costs.
struct Cost {
    bool ok = false;
    std::uintmax_t source_bytes = 0;
    double cpu_seconds = 0;
    std::uintmax_t object_size = 0;  // text + data + bss
    std::uintmax_t object_bytes = 0; // the object files themselves
};

// One compiler of IDL: its command (the IDL file is appended), the
// extension of the source files it writes, the compile flags they need.
struct Side {
    std::string label;
    std::vector<std::string> command;
    std::string source_extension;
    std::vector<std::string> flags;
};

bool parse(int argc, char** argv, Settings& s)
{
    const std::map<std::string, std::string*> texts = {{"--yvidl", &s.yvidl},
                                                       {"--runtime-include", &s.runtime_include},
                                                       {"--omniidl", &s.omniidl},
                                                       {"--cxx", &s.cxx},
                                                       {"--keep", &s.keep_dir}};
    // Every option takes a value.
    bool ok = argc % 2 == 1;
    for (int i = 1; ok && i + 1 < argc; i += 2) {
        const std::string option = argv[i];
        const char* value = argv[i + 1];
        if (auto text = texts.find(option); text != texts.end())
            *text->second = value;
        else if (option == "--repeat")
            s.repeat = std::max(1, std::atoi(value));
        else if (option == "--interfaces")
            s.interfaces.push_back(std::max(1, std::atoi(value)));
        else
            ok = false;
    }
    if (!ok) {
        std::cerr << "usage: yv_gencode_bench [--yvidl PATH] [--runtime-include DIR] [--omniidl PATH] "
                     "[--cxx COMPILER] [--repeat N] [--interfaces N]... [--keep DIR]\n";
        return false;
    }
    if (s.interfaces.empty())
        s.interfaces = {10, 100};
    return true;
}

// Sum of text + data + bss of the object files, from `size` (Berkeley form,
// totals line).
bool object_size(const std::vector<fs::path>& objects, std::uintmax_t& total)
{
    std::string command = "size -B -t";
    for (const fs::path& o : objects)
        command += " '" + o.string() + "'";
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr)
        return false;
    std::string text;
    char buffer[4096];
    while (std::fgets(buffer, sizeof buffer, pipe) != nullptr)
        text += buffer;
    if (pclose(pipe) != 0)
        return false;
    // The last line: text data bss dec hex (TOTALS).
    const auto last = text.find_last_of('\n', text.size() - 2);
    std::istringstream line(text.substr(last == std::string::npos ? 0 : last + 1));
    std::uintmax_t segment[3] = {};
    if (!(line >> segment[0] >> segment[1] >> segment[2]))
        return false;
    total = segment[0] + segment[1] + segment[2];
    return true;
}

Cost measure(const Side& side, const fs::path& idl, const fs::path& dir, const Settings& s)
{
    Cost cost;
    fs::create_directories(dir);
    std::vector<std::string> generate = side.command;
    generate.push_back(idl.string());
    const auto run = YV_BenchRun::run(generate, dir.string());
    if (!run.ok) {
        std::cerr << side.label << " failed (status " << run.status << ")\n" << run.errors.substr(0, 2000) << '\n';
        return cost;
    }
    std::vector<fs::path> sources;
    for (const auto& e : fs::directory_iterator(dir))
        if (e.path().extension() == side.source_extension)
            sources.push_back(e.path());
    std::sort(sources.begin(), sources.end());
    std::vector<fs::path> objects;
    for (const fs::path& source : sources) {
        cost.source_bytes += fs::file_size(source);
        fs::path object = source;
        object.replace_extension(".o");
        std::vector<std::string> compile = {s.cxx, "-O2", "-c"};
        compile.insert(compile.end(), side.flags.begin(), side.flags.end());
        compile.insert(compile.end(), {source.string(), "-o", object.string()});
        const auto c = YV_BenchRun::best_of(s.repeat, compile, dir.string());
        if (!c.ok) {
            std::cerr << s.cxx << " failed on " << source.string() << " (status " << c.status << ")\n"
                      << c.errors.substr(0, 4000) << '\n';
            return cost;
        }
        cost.cpu_seconds += c.cpu_seconds;
        cost.object_bytes += fs::file_size(object);
        objects.push_back(object);
    }
    if (objects.empty() || !object_size(objects, cost.object_size)) {
        std::cerr << side.label << ": no object files, or `size` failed\n";
        return cost;
    }
    cost.ok = true;
    return cost;
}

void print_row(const std::string& label, const Cost& c)
{
    std::cout << "  " << std::left << std::setw(22) << label << std::right << std::setw(12) << c.source_bytes
              << std::fixed << std::setprecision(2) << std::setw(10) << c.cpu_seconds << " s" << std::setw(14)
              << c.object_size << std::setw(14) << c.object_bytes << '\n';
}

double ratio(double a, double b) { return b > 0 ? a / b : 0; }

} // namespace

int main(int argc, char** argv)
{
    Settings s;
    if (!parse(argc, argv, s))
        return 2;

    const std::string dir_text = YV_BenchRun::work_dir(s.keep_dir, "yv_gencode_bench");
    if (dir_text.empty())
        return 1;
    const fs::path root = dir_text;

    const std::vector<Side> sides = {
        {"yvidl -base -poa", {s.yvidl, "-base", "-poa"}, ".cxx", {"-I" + s.runtime_include}},
        {"omniidl -bcxx", {s.omniidl, "-bcxx"}, ".cc", {}},
    };
    std::cout << "compiler: " << s.cxx << " -O2 -c; cpu time: best of " << s.repeat
              << " per file, summed; object size: text + data + bss\n";

    int status = 0;
    for (int n : s.interfaces) {
        const fs::path dir = root / ("interfaces-" + std::to_string(n));
        fs::create_directories(dir);
        const fs::path idl = dir / "bench.idl";
        YV_BenchIdl writer;
        writer.interfaces = n;
        {
            std::ofstream out(idl);
            writer.write(out);
        }
        std::cout << '\n'
                  << n << " interfaces (" << fs::file_size(idl) << " bytes of IDL)\n"
                  << "  " << std::left << std::setw(22) << "" << std::right << std::setw(12) << "source B"
                  << std::setw(12) << "cpu" << std::setw(14) << "size B" << std::setw(14) << "object B" << '\n';
        std::vector<Cost> costs;
        for (const Side& side : sides) {
            costs.push_back(measure(side, idl, dir / side.source_extension.substr(1), s));
            if (!costs.back().ok) {
                status = 1;
                break;
            }
            print_row(side.label, costs.back());
        }
        if (costs.size() != 2 || !costs[1].ok)
            continue;
        const Cost& ours = costs[0];
        const Cost& theirs = costs[1];
        const double r_cpu = ratio(ours.cpu_seconds, theirs.cpu_seconds);
        const double r_size = ratio(double(ours.object_size), double(theirs.object_size));
        std::cout << "  " << std::left << std::setw(22) << "ratio yvidl / omniidl" << std::right << std::setw(12)
                  << std::setprecision(2) << ratio(double(ours.source_bytes), double(theirs.source_bytes))
                  << std::setw(12) << r_cpu << std::setw(14) << r_size << std::setw(14)
                  << ratio(double(ours.object_bytes), double(theirs.object_bytes)) << '\n'
                  << "  (target: cpu and size ratios at most 1.00: "
                  << (r_cpu <= 1.0 && r_size <= 1.0 ? "met" : "MISSED") << ")\n";
    }

    if (s.keep_dir.empty())
        fs::remove_all(root);
    return status;
}
