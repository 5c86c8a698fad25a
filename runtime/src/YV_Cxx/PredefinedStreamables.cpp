#include "zantic_sys/YV_Cxx/PredefinedStreamables.h"

namespace YV_Cxx {

#define YV_INSTANTIATE_STREAMABLE(slot, value, ...)          \
    template class SlotStreamable<__VA_ARGS__, slot, value>; \
    template class __VA_ARGS__;
YV_PREDEFINED_STREAMABLES(YV_INSTANTIATE_STREAMABLE)
#undef YV_INSTANTIATE_STREAMABLE

} // namespace YV_Cxx
