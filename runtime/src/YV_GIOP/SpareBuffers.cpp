#include "YV_GIOP/SpareBuffers.h"

#include <optional>

namespace YV_GIOP {

namespace {

struct Spares {
    std::optional<YV_CDR::OutputStream> stream;
    std::vector<unsigned char> octets;
    bool octets_kept = false;
};

Spares& spares()
{
    thread_local Spares kept;
    return kept;
}

} // namespace

YV_CDR::OutputStream SpareBuffers::take_stream(std::size_t initial_capacity)
{
    Spares& s = spares();
    if (!s.stream)
        return YV_CDR::OutputStream(YV_CDR::native_little_endian, initial_capacity);
    YV_CDR::OutputStream taken = std::move(*s.stream);
    s.stream.reset();
    return taken;
}

void SpareBuffers::give_stream(YV_CDR::OutputStream&& stream)
{
    Spares& s = spares();
    if (s.stream || stream.data() == nullptr || stream.little_endian() != YV_CDR::native_little_endian
        || stream.size() > kept_size)
        return;
    stream.clear();
    stream.giop_minor(2);
    s.stream.emplace(std::move(stream));
}

std::vector<unsigned char> SpareBuffers::take_octets(std::size_t size)
{
    Spares& s = spares();
    std::vector<unsigned char> taken;
    if (s.octets_kept) {
        taken.swap(s.octets);
        s.octets_kept = false;
    }
    taken.resize(size);
    return taken;
}

void SpareBuffers::give_octets(std::vector<unsigned char>&& octets)
{
    Spares& s = spares();
    if (s.octets_kept || octets.capacity() > kept_size)
        return;
    s.octets.swap(octets);
    s.octets_kept = true;
}

} // namespace YV_GIOP
