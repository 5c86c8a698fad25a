#include "FuzzSupport.h"

#include "YV_Exit.h"

#include <cstdlib>
#include <iostream>
#include <streambuf>

namespace yvfuzz {

namespace {

class NullBuffer : public std::streambuf {
protected:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
};

[[noreturn]] void throw_exit(int status) { throw ExitCalled{status}; }

} // namespace

void init()
{
    static NullBuffer null_buffer;
    if (!std::getenv("YV_FUZZ_VERBOSE"))
        std::cerr.rdbuf(&null_buffer);
    yv_set_exit_handler(throw_exit);
}

IDL_FrontendOptions frontend_options()
{
    IDL_FrontendOptions options;
    options.include_dirs.push_back(FUZZ_INCLUDE_DIR);
    return options;
}

} // namespace yvfuzz
