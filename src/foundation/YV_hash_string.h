// The string hash that places operation names in dispatch tables. Its one
// definition lives with the runtime, whose table lookup must use the same
// function: the generated tables are searched there.
#ifndef YV_FOUNDATION_HASH_STRING_H
#define YV_FOUNDATION_HASH_STRING_H

#include "../../runtime/include/zantic_sys/YV_hash_string.h"

#endif
