// What the fuzz targets share: quiet diagnostics, the front end's options,
// and a way out of a run that would end the process.
#ifndef FUZZSUPPORT_H
#define FUZZSUPPORT_H

#include "IDL_Frontend.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace yvfuzz {

// Sends the error stream nowhere (diagnostics cost time and say nothing to
// the fuzzer) unless YV_FUZZ_VERBOSE is set, and makes yv_exit throw
// ExitCalled instead of ending the process.
void init();

// Thrown by yv_exit while a target runs: a back end wanted to end the
// process (an output file could not be opened or written).
struct ExitCalled {
    int status;
};

// The front end's options for a run: the include directory of the fuzz
// inputs (FUZZ_INCLUDE_DIR), the compiler's IDL directory (FUZZ_IDL_DIR)
// and the default limits.
IDL_FrontendOptions frontend_options();

// The input as text.
inline std::string text_of(const std::uint8_t* data, std::size_t size)
{
    return std::string(reinterpret_cast<const char*>(data), size);
}

} // namespace yvfuzz

#endif
