// Network benchmark client, built against each ORB from this one source
// (standard C++ mapping only): the round-trip time of a small two-way call
// (Probe::add) and the throughput of 64 KiB octet sequences
// (Probe::bounce, which sends them back) over one connection.
//
// net_bench [ORB options] --ior-file FILE [--calls N] [--bulk N] [--repeat N]
// Prints "latency_us <microseconds per call>" and "throughput_mib_s <MiB of
// payload per second, both directions counted>", each the best of the
// repeats. Exits 1 when a reply is wrong.
#include "InteropOrb.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

namespace {

typedef std::chrono::steady_clock Clock;

double seconds_since(Clock::time_point start)
{
    return std::chrono::duration<double>(Clock::now() - start).count();
}

} // namespace

int main(int argc, char** argv)
{
    try {
        CORBA::ORB_var orb = CORBA::ORB_init(argc, argv);
        std::string reference;
        long calls = 20000, bulk = 2000, repeat = 3;
        for (int i = 1; i < argc; ++i) {
            const bool value = i + 1 < argc;
            if (!std::strcmp(argv[i], "--ior-file") && value) {
                std::ifstream in(argv[++i]);
                std::getline(in, reference);
            } else if (!std::strcmp(argv[i], "--calls") && value) {
                calls = std::max(1L, std::atol(argv[++i]));
            } else if (!std::strcmp(argv[i], "--bulk") && value) {
                bulk = std::max(1L, std::atol(argv[++i]));
            } else if (!std::strcmp(argv[i], "--repeat") && value) {
                repeat = std::max(1L, std::atol(argv[++i]));
            } else {
                std::fprintf(stderr, "usage: net_bench [ORB options] --ior-file FILE [--calls N] [--bulk N] "
                                     "[--repeat N]\n");
                return 2;
            }
        }
        CORBA::Object_var object = orb->string_to_object(reference.c_str());
        Interop::Probe_var probe = Interop::Probe::_narrow(object.in());
        if (CORBA::is_nil(probe.in())) {
            std::fprintf(stderr, "net_bench: the reference names no Probe\n");
            return 1;
        }

        bool right = true;
        // Warm-up: the connection, the server's threads, the caches.
        for (long i = 0; i < 1000; ++i)
            right &= probe->add(static_cast<CORBA::Long>(i), 1) == i + 1;
        double latency = 1e9;
        for (long r = 0; r < repeat; ++r) {
            const Clock::time_point start = Clock::now();
            for (long i = 0; i < calls; ++i)
                right &= probe->add(static_cast<CORBA::Long>(i), 2) == i + 2;
            latency = std::min(latency, seconds_since(start) / static_cast<double>(calls) * 1e6);
        }

        const CORBA::ULong size = 64 * 1024;
        Interop::Octets data;
        data.length(size);
        for (CORBA::ULong i = 0; i < size; ++i)
            data[i] = static_cast<CORBA::Octet>(i * 13 + 7);
        for (long i = 0; i < 20; ++i) {
            Interop::Octets_var back = probe->bounce(data);
            right &= back->length() == size;
        }
        double throughput = 0;
        for (long r = 0; r < repeat; ++r) {
            const Clock::time_point start = Clock::now();
            for (long i = 0; i < bulk; ++i) {
                data[static_cast<CORBA::ULong>(i) % size] = static_cast<CORBA::Octet>(i);
                Interop::Octets_var back = probe->bounce(data);
                right &= back->length() == size &&
                         std::memcmp(back->get_buffer(), data.get_buffer(), size) == 0;
            }
            const double mib = 2.0 * size * static_cast<double>(bulk) / (1024.0 * 1024.0);
            throughput = std::max(throughput, mib / seconds_since(start));
        }

        std::printf("latency_us %.2f\nthroughput_mib_s %.1f\n", latency, throughput);
        orb->destroy();
        if (!right)
            std::fprintf(stderr, "net_bench: wrong replies\n");
        return right ? 0 : 1;
    } catch (const CORBA::Exception& e) {
        std::fprintf(stderr, "net_bench: %s\n", e._rep_id());
        return 1;
    }
}
