// Fuzz target: the whole front end (preprocessor, lexer, parser, checks) on
// a text held in memory.
#include "FuzzSupport.h"
#include "idl_msg_header.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    yvfuzz::init();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    idl_reset_error_count();
    IDL_Frontend(yvfuzz::frontend_options()).parse_text("fuzz.idl", yvfuzz::text_of(data, size));
    return 0;
}
