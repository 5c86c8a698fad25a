// Runs a command as a child process (fork and exec, no shell) in a given
// directory and measures it: wall time with a steady clock; cpu time (user
// plus system) and peak resident memory from the child's resource usage.
#ifndef YV_BENCHRUN_H
#define YV_BENCHRUN_H

#include <string>
#include <vector>

class YV_BenchRun {
public:
    struct Result {
        bool ok = false;          // started and exited with status 0
        int status = -1;          // exit status, -1 when killed or not started
        double seconds = 0;       // wall time
        double cpu_seconds = 0;   // user + system time of the child
        long peak_kib = 0;        // maximum resident set size
        std::string errors;       // what the child wrote on its error stream
    };

    // Runs `argv` (argv[0] is looked up in PATH when it has no '/') in `dir`.
    static Result run(const std::vector<std::string>& argv, const std::string& dir);
    // The best of `repeat` runs: the shortest wall and cpu times, the largest
    // peak memory.
    static Result best_of(int repeat, const std::vector<std::string>& argv, const std::string& dir);
    // The absolute folder to work in: `keep` when given, otherwise a new
    // temporary folder named after `prefix`. Empty (and the reason printed)
    // when it cannot be made.
    static std::string work_dir(const std::string& keep, const std::string& prefix);
};

#endif
