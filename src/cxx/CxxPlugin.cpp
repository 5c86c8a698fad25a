// The base generator as a loadable back end ("yvidl -base"), and the
// library's registration with the foundation library.
#include "GEN_CPlusPlus.h"
#include "YV_Shlib_Init.h"

#include <iostream>

namespace {

GEN_CPlusPlus the_generator;

const YV_Shlib_Flags cxx_flags = {0x201, 0};
const YV_Shlib_Description cxx_description = {"yv_cxx_ibe", "3", &cxx_flags, nullptr};
const YV_Shlib_Dependency cxx_dependencies[] = {
    {"yv_idl_cfe", "3", 0x201},
    {"yv_ifc", "3", 0x10201},
    {nullptr, nullptr, 0},
};

YV_Shlib_Init cxx_registration(cxx_description, cxx_dependencies, YV_global_default_exc_handler);

} // namespace

extern "C" CodeGenerator* CxxInit() { return &the_generator; }

extern "C" void CxxUsage()
{
    GEN_CPlusPlus::print_usage(std::cerr);
    std::cerr.flush();
}
