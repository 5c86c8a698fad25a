// The front-end library's entry in the library registry, made when the
// library is loaded: yv_idl_cfe version "3", built on the foundation library.
#include "YV_Shlib_Init.h"

namespace {

const YV_Shlib_Flags cfe_flags = {0x201UL, 0UL};
const YV_Shlib_Description cfe_description = {"yv_idl_cfe", "3", &cfe_flags, nullptr};
const YV_Shlib_Dependency cfe_dependencies[] = {
    {"yv_ifc", "3", 0x10201UL},
    {nullptr, nullptr, 0UL},
};

const YV_Shlib_Init cfe_registration(cfe_description, cfe_dependencies, YV_global_default_exc_handler);

} // namespace
