#include "idl_msg_header.h"

#include "UTL_String.h"

#include <atomic>
#include <iostream>

namespace {
std::atomic<long> g_errors{0};
}

void idl_msg_header(long line, long column, UTL_String* file)
{
    std::cerr << (file ? file->get_string() : "<unknown>") << ':' << line << ':';
    if (column > 0)
        std::cerr << column << ':';
    std::cerr << " error: ";
    ++g_errors;
}

long idl_error_count() { return g_errors; }

void idl_reset_error_count() { g_errors = 0; }

// Front-end diagnostics count through this as well.
void idl_count_error() { ++g_errors; }
