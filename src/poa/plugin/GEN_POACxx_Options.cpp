// Option parsing of the POACxx generator: the option text after the
// plug-in's switch, and "@switch" words of back-end blocks.
#include "GEN_POACxx.h"

#include "UTL_ArgParser.h"

#include <climits>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <string>

namespace {

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

} // namespace

void GEN_POACxx::set_options(const char* text) { set_options(text, 1, 0); }

void GEN_POACxx::set_options(const char* text, long on, long off)
{
    if (!text)
        return;
    UTL_ArgParser parser;
    parser.initGetOptString(text);
    // "c:h:s:b:x:gi:d:tm:p:O:"
    const std::string grammar = option_grammar(true);
    for (int letter; (letter = parser.getOptString(grammar.c_str())) != -1;)
        apply_option(letter, parser.optsign(), parser.optarg(), on, off);
}

void GEN_POACxx::apply_option(int letter, char sign, const char* value, long on, long off)
{
    // Letters whose whole effect is their value: without one nothing changes.
    if (!value && option_needs_value(letter)) {
        std::cerr << "Warning: POA C++ generator option '" << sign << static_cast<char>(letter) << "' needs a value"
                  << std::endl;
        return;
    }
    switch (letter) {
    case 'b':
        m_client_header_ext = value;
        break;
    case 'm':
        if (value)
            m_exclude_patterns.insert(value, value);
        break;
    case 'p':
        m_hash_max = leading_int(value);
        break;
    case 't':
        break;
    default:
        if (!apply_base_option(letter, value, on, off))
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
