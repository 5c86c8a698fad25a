// A library in the place of a back end that lacks its init entry point: the
// driver must report the missing symbol and stop.
#include <iostream>

extern "C" void POACxxUsage() { std::cerr << "not a back end\n"; }
