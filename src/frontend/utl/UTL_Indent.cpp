#include "UTL_Indent.h"

#include <ostream>
#include <string>

std::ostream& operator<<(std::ostream& os, const UTL_Indent& indent)
{
    // Levels beyond this are written in pieces; generated code is never that deep.
    static const std::string blanks(64 * UTL_Indent::WIDTH, ' ');
    std::size_t n = static_cast<std::size_t>(indent.get_indent()) * UTL_Indent::WIDTH;
    while (n > blanks.size()) {
        os << blanks;
        n -= blanks.size();
    }
    return os.write(blanks.data(), static_cast<std::streamsize>(n));
}
