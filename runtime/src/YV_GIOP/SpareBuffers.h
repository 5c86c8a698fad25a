// Buffers of messages kept per thread for the next message, so that a
// thread that sends and receives large messages one after the other neither
// allocates nor faults in fresh pages for each. One output stream (native
// byte order) and one octet vector are kept per thread; whoever takes one
// gives it back when done, and a nested user finds none and allocates.
// Buffers beyond `kept_size` are not kept.
#ifndef YV_GIOP_SPAREBUFFERS_H
#define YV_GIOP_SPAREBUFFERS_H

#include "zantic_sys/YV_CDR/OutputStream.h"

#include <cstddef>
#include <vector>

namespace YV_GIOP {

class SpareBuffers {
public:
    static constexpr std::size_t kept_size = 1024 * 1024;

    // An empty stream in native byte order, with the capacity of the last
    // one given back on this thread.
    static YV_CDR::OutputStream take_stream(std::size_t initial_capacity);
    static void give_stream(YV_CDR::OutputStream&& stream);

    // A vector of `size` octets whose values are unspecified: only octets
    // beyond the size of the last vector given back are zeroed.
    static std::vector<unsigned char> take_octets(std::size_t size);
    static void give_octets(std::vector<unsigned char>&& octets);
};

} // namespace YV_GIOP

#endif
