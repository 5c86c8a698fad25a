#include "YV_String.h"

#include <istream>
#include <ostream>

std::ostream& operator<<(std::ostream& os, const YV_String& s) { return os << s.str(); }

std::istream& operator>>(std::istream& is, YV_String& s)
{
    std::string word;
    if (is >> word)
        s = YV_String(std::move(word));
    return is;
}
