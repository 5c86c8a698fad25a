#include "YV_BenchRun.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

YV_BenchRun::Result YV_BenchRun::run(const std::vector<std::string>& argv, const std::string& dir)
{
    Result r;
    if (argv.empty())
        return r;
    const std::string err_path = dir + "/.bench-stderr";
    std::vector<char*> args;
    for (const std::string& a : argv)
        args.push_back(const_cast<char*>(a.c_str()));
    args.push_back(nullptr);

    const auto start = std::chrono::steady_clock::now();
    const pid_t pid = fork();
    if (pid < 0)
        return r;
    if (pid == 0) {
        // The child: into the directory, output away, error stream kept.
        if (chdir(dir.c_str()) != 0)
            _exit(127);
        const int null_fd = open("/dev/null", O_RDWR);
        const int err_fd = open(err_path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (null_fd < 0 || err_fd < 0)
            _exit(127);
        dup2(null_fd, 0);
        dup2(null_fd, 1);
        dup2(err_fd, 2);
        execvp(args[0], args.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (wait4(pid, &status, 0, &usage) != pid)
        return r;
    r.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    r.peak_kib = usage.ru_maxrss;
    r.cpu_seconds = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                    static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
    r.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    r.ok = r.status == 0;
    std::ifstream err(err_path);
    std::ostringstream text;
    text << err.rdbuf();
    r.errors = text.str();
    std::remove(err_path.c_str());
    return r;
}

YV_BenchRun::Result YV_BenchRun::best_of(int repeat, const std::vector<std::string>& argv, const std::string& dir)
{
    Result best;
    for (int i = 0; i < repeat; ++i) {
        Result r = run(argv, dir);
        if (!r.ok)
            return r;
        if (i == 0 || r.seconds < best.seconds)
            best.seconds = r.seconds;
        if (i == 0 || r.cpu_seconds < best.cpu_seconds)
            best.cpu_seconds = r.cpu_seconds;
        best.peak_kib = std::max(best.peak_kib, r.peak_kib);
        best.ok = true;
        best.status = 0;
    }
    return best;
}

std::string YV_BenchRun::work_dir(const std::string& keep, const std::string& prefix)
{
    namespace fs = std::filesystem;
    std::string dir = keep;
    if (dir.empty()) {
        dir = (fs::temp_directory_path() / (prefix + "-XXXXXX")).string();
        if (!mkdtemp(dir.data())) {
            std::perror("mkdtemp");
            return {};
        }
    }
    return fs::absolute(dir).string();
}
