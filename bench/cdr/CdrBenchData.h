// The records both sides of the CDR benchmark encode: the same
// pseudo-random lengths and values on either side, so that both write the
// same octets.
#ifndef YV_BENCH_CDR_CDRBENCHDATA_H
#define YV_BENCH_CDR_CDRBENCHDATA_H

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace cdr_bench {

struct Plain {
    std::int32_t id;
    std::string name;
    std::vector<double> values;
};

// 10,000 records by default: names of 4 to 43 characters, 0 to 31 values.
inline std::vector<Plain> make_records(std::size_t count = 10000)
{
    std::vector<Plain> records(count);
    std::uint32_t seed = 12345;
    const auto next = [&seed] {
        seed = seed * 1103515245u + 12345u;
        return (seed >> 16) & 0x7fff;
    };
    for (std::size_t i = 0; i < count; ++i) {
        Plain& r = records[i];
        r.id = static_cast<std::int32_t>(i * 7 - 1000);
        const std::size_t name_length = 4 + next() % 40;
        for (std::size_t k = 0; k < name_length; ++k)
            r.name += static_cast<char>('a' + next() % 26);
        r.values.resize(next() % 32);
        for (double& v : r.values)
            v = static_cast<double>(next()) / 128.0 - 100.0;
    }
    return records;
}

// FNV-1a of the encoded octets, printed so that the driver can check that
// both sides wrote the same.
inline std::uint64_t checksum(const void* data, std::size_t n)
{
    const unsigned char* p = static_cast<const unsigned char*>(data);
    std::uint64_t h = 1469598103934665603ull;
    for (std::size_t i = 0; i < n; ++i)
        h = (h ^ p[i]) * 1099511628211ull;
    return h;
}

// The line each side prints: seconds per encode and per decode of the
// whole sequence (best of the rounds), the octets and their checksum.
inline void report(double encode, double decode, std::size_t octets, std::uint64_t sum)
{
    std::printf("encode %.9f decode %.9f octets %zu checksum %016llx\n", encode, decode, octets,
                static_cast<unsigned long long>(sum));
}

} // namespace cdr_bench

#endif
