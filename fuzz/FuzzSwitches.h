// The back ends' switches that the pipeline target takes from the first
// byte of its input, one bit each. Shared with the regression test that
// replays saved inputs through the compiler.
#ifndef FUZZSWITCHES_H
#define FUZZSWITCHES_H

#include <cstdint>
#include <string>

namespace yvfuzz {

// Both back ends get the same switches. The base warns about those only the
// POA back end knows (-xTIE, -xColocPOA, -p2) and goes on, as it does on
// yvidl's command line.
inline const char* const kSwitches[8] = {"-xTIE",        "-xAMICallbacks",  "-xNoNamespaces", "-xColocPOA",
                                         "-xAMIPolling", "-xEnforceRaises", "-d",             "-p2"};

// The colon-separated option text for the switches set in `bits`.
inline std::string options_of(std::uint8_t bits)
{
    std::string text;
    for (int k = 0; k < 8; ++k) {
        if (bits & (1u << k)) {
            if (!text.empty())
                text += ':';
            text += kSwitches[k];
        }
    }
    return text;
}

} // namespace yvfuzz

#endif
