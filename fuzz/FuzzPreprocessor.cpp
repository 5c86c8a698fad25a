// Fuzz target: the preprocessor alone, on a text held in memory.
#include "FuzzSupport.h"
#include "IDL_Preprocessor.h"
#include "idl_msg_header.h"

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    yvfuzz::init();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    idl_reset_error_count();
    IDL_Preprocessor pp(yvfuzz::frontend_options());
    PP_Result result;
    pp.run_text("fuzz.idl", yvfuzz::text_of(data, size), result);
    return 0;
}
