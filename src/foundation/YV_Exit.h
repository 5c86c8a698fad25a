// Ending the process from inside a generator: an output file that cannot be
// written ends the run with status 99. A program that runs the compiler in
// its own process and must outlive such a run (a fuzzing harness) installs
// a handler that leaves by other means, an exception say.
#ifndef YV_EXIT_H
#define YV_EXIT_H

using YV_ExitHandler = void (*)(int status);

// Calls the installed handler with `status`; when there is none, or it
// returns, the process exits with `status`.
[[noreturn]] void yv_exit(int status);
// Installs `handler` (null: plain exit) and returns the previous one.
YV_ExitHandler yv_set_exit_handler(YV_ExitHandler handler);

#endif
