#include "YV_File.h"

#ifdef _WIN32
const char YV_File::SEPARATOR = '\\';
#else
const char YV_File::SEPARATOR = '/';
#endif
