// Fuzz target: the front end and both back ends, writing their files into a
// scratch directory. The first byte of the input picks the back ends'
// switches; the rest is the IDL text.
#include "FuzzSupport.h"
#include "FuzzSwitches.h"
#include "GEN_CPlusPlus.h"
#include "GEN_POACxx.h"
#include "YV_OutputFile.h"
#include "idl_msg_header.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    yvfuzz::init();
    // Outputs go to a scratch directory of their own; every run writes the
    // same names again. It goes when the process ends normally.
    const char* tmp = std::getenv("TMPDIR");
    static std::string dir = std::string(tmp && *tmp ? tmp : "/tmp") + "/yvfuzz-XXXXXX";
    if (!::mkdtemp(dir.data()) || ::chdir(dir.c_str()) != 0)
        std::abort();
    std::atexit([] {
        std::error_code ignored;
        std::filesystem::remove_all(dir, ignored);
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    idl_reset_error_count();
    YV_OutputFile::forget_files();
    std::unique_ptr<IDL_GlobalData> tree =
        IDL_Frontend(yvfuzz::frontend_options()).parse_text("fuzz.idl", yvfuzz::text_of(data + 1, size - 1));
    if (!tree)
        return 0;
    const std::string options = yvfuzz::options_of(data[0]);
    // Fresh generators: options that a run's back-end blocks set must not
    // carry over to the next input.
    try {
        GEN_CPlusPlus client;
        client.generate(tree.get(), options.c_str());
        GEN_POACxx skeletons;
        skeletons.generate(tree.get(), options.c_str());
    } catch (const yvfuzz::ExitCalled&) {
        // An output could not be written; reported, as the compiler does.
    }
    return 0;
}
