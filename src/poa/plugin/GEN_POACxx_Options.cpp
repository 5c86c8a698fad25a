// Option parsing of the POACxx generator: the option text after the
// plug-in's switch, and "@switch" words of back-end blocks.
#include "GEN_POACxx.h"

#include "UTL_ArgParser.h"
#include "YV_File.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <iostream>

namespace {

// The letters the plug-in knows; c, h, s, b, x, i, d, m, p and O take a value.
const char* const OPTION_GRAMMAR = "c:h:s:b:x:gi:d:tm:p:O:";

// The decimal number at the start of `text`, as atoi reads it (blanks and a
// sign allowed, 0 when there is no number), except that a number beyond
// the range of int gives the nearest end of the range instead of wrapping.
int leading_int(const char* text)
{
    if (!text)
        return 0;
    const long long v = std::strtoll(text, nullptr, 10);
    if (v > INT_MAX)
        return INT_MAX;
    if (v < INT_MIN)
        return INT_MIN;
    return static_cast<int>(v);
}

// A directory as given, with one separator at its end unless it is empty.
YV_String as_directory(const char* text)
{
    YV_String dir(text);
    if (!dir.empty() && dir[dir.length() - 1] != YV_File::SEPARATOR)
        dir += YV_File::SEPARATOR;
    return dir;
}

} // namespace

void GEN_POACxx::set_options(const char* text) { set_options(text, 1, 0); }

void GEN_POACxx::set_options(const char* text, long on, long off)
{
    if (!text)
        return;
    UTL_ArgParser parser;
    parser.initGetOptString(text);
    for (int letter; (letter = parser.getOptString(OPTION_GRAMMAR)) != -1;)
        apply_option(letter, parser.optsign(), parser.optarg(), on, off);
}

void GEN_POACxx::apply_option(int letter, char sign, const char* value, long on, long off)
{
    // Letters whose whole effect is their value: without one nothing changes.
    if (!value && std::strchr("cshbxpO", letter)) {
        std::cerr << "Warning: POA C++ generator option '" << sign << static_cast<char>(letter) << "' needs a value"
                  << std::endl;
        return;
    }
    switch (letter) {
    case 'c':
    case 's':
        m_stub_ext = value;
        break;
    case 'h':
        m_header_ext = value;
        break;
    case 'b':
        m_client_header_ext = value;
        break;
    case 'x':
        code_off_switch(value, on, off);
        break;
    case 'i':
        if (value)
            m_include_prefix = value;
        break;
    case 'd':
        m_declspecs = on;
        if (value)
            m_declspec_name = value;
        break;
    case 'm':
        if (value)
            m_exclude_patterns.insert(value, value);
        break;
    case 'p':
        m_hash_max = leading_int(value);
        break;
    case 'O':
        if (value[0] == 'h')
            m_header_dir = as_directory(value + 1);
        else if (value[0] == 'c' || value[0] == 's')
            m_stub_dir = as_directory(value + 1);
        else
            std::cerr << "Unknown C++ generator option '" << 'O' << value[0] << "'" << std::endl;
        break;
    case 't':
        break;
    default:
        std::cerr << "Unknown POA C++ generator option '" << static_cast<char>(letter) << "'" << std::endl;
        break;
    }
}

void GEN_POACxx::code_off_switch(const char* name, long on, long off)
{
    if (std::strcmp(name, "POAInterfaces") == 0)
        m_poa_interfaces = off;
    else if (std::strcmp(name, "ColocPOA") == 0)
        m_coloc_poa = on;
    else if (std::strcmp(name, "TIE") == 0)
        m_tie = on;
    else if (std::strcmp(name, "ORB_S_HH") == 0)
        m_orb_s_hh = on;
    else
        GEN_CPlusPlus::code_off_switch(name, on, off);
}
