// The omniORB CDR vectors of data/cdr_vectors.txt, and comparison of our
// encodings with them.
#ifndef CDRVECTORS_HH
#define CDRVECTORS_HH

#include <zantic_sys/YV_CDR/InputStream.h>
#include <zantic_sys/YV_CDR/OutputStream.h>

#include <string>
#include <vector>

typedef std::vector<unsigned char> Octets;

// The vector `name` in byte order `little` (fails the test when missing).
const Octets& cdr_vector(const std::string& name, bool little);

// A stream over the octets, from offset 0.
inline YV_CDR::InputStream stream_over(const Octets& v, bool little)
{
    return YV_CDR::InputStream(v.data(), v.size(), little);
}

inline Octets octets_of(const YV_CDR::OutputStream& out)
{
    return Octets(out.data(), out.data() + out.size());
}

// An empty string when `ours` is `theirs` but for padding octets (which we
// write as 0 and omniORB leaves unset), else where they first differ.
std::string differences_beyond_padding(const Octets& ours, const Octets& theirs);

#endif
