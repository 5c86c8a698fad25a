#include "YV_Exit.h"

#include <cstdlib>
#include <iostream>

namespace {
YV_ExitHandler g_handler = nullptr;
}

void yv_exit(int status)
{
    if (g_handler)
        g_handler(status);
    std::cout.flush();
    std::exit(status);
}

YV_ExitHandler yv_set_exit_handler(YV_ExitHandler handler)
{
    YV_ExitHandler previous = g_handler;
    g_handler = handler;
    return previous;
}
