// The foundation library's own entry in the library registry, made when the
// library is loaded. It depends on nothing.
#include "YV_Shlib_Init.h"

namespace {

const YV_Shlib_Flags ifc_flags = {0x201UL, 0UL};
const YV_Shlib_Description ifc_description = {"yv_ifc", "3", &ifc_flags, nullptr};
const YV_Shlib_Dependency ifc_dependencies[] = {
    {nullptr, nullptr, 0UL},
};

const YV_Shlib_Init ifc_registration(ifc_description, ifc_dependencies, YV_global_default_exc_handler);

} // namespace
