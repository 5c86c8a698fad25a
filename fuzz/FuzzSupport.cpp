#include "FuzzSupport.h"

#include "YV_Exit.h"

#include <cstdlib>
#include <iostream>

namespace yvfuzz {

namespace {

[[noreturn]] void throw_exit(int status) { throw ExitCalled{status}; }

} // namespace

void init()
{
    // A stream in a failed state writes nothing; unlike a buffer of ours put
    // in its place, nothing is left to dangle when the process ends.
    if (!std::getenv("YV_FUZZ_VERBOSE"))
        std::cerr.setstate(std::ios::badbit);
    yv_set_exit_handler(throw_exit);
}

IDL_FrontendOptions frontend_options()
{
    IDL_FrontendOptions options;
    options.include_dirs.push_back(FUZZ_INCLUDE_DIR);
    // Searched last, as yvidl searches its own IDL directory.
    options.include_dirs.push_back(FUZZ_IDL_DIR);
    return options;
}

} // namespace yvfuzz
