// yv_cdr_bench: CDR encode and decode throughput of a sequence of 10,000
// variable-length structures (Record.idl), this runtime against omniORB.
//
//   yv_cdr_bench [--rounds N] [--omniorb PATH]
//
// Times the marshaling `yvidl -base` writes for Record.idl, then runs the
// omniORB side (yv_cdr_bench_omniorb beside this program, or PATH: the same
// records through omniidl's marshaling and cdrMemoryStream) as a child
// process in the same run, and prints both rates and their ratio. The two sides live in two
// processes because both ORBs define the CORBA namespace. Exits non-zero
// when the two sides wrote different octets.
#include "CdrBenchData.h"

#include "Record.hh"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string>

namespace {

typedef std::chrono::steady_clock Clock;

double seconds_since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

struct Result {
    double encode = 0;
    double decode = 0;
    std::size_t octets = 0;
    unsigned long long checksum = 0;
};

Result measure_ours(int rounds)
{
    const std::vector<cdr_bench::Plain> plain = cdr_bench::make_records();
    Bench::Records records;
    records.length(static_cast<CORBA::ULong>(plain.size()));
    for (CORBA::ULong i = 0; i < records.length(); ++i) {
        records[i].id = plain[i].id;
        records[i].name = plain[i].name.c_str();
        records[i].values.length(static_cast<CORBA::ULong>(plain[i].values.size()));
        std::copy(plain[i].values.begin(), plain[i].values.end(), records[i].values.get_buffer());
    }
    Result r;
    r.encode = r.decode = 1e9;
    YV_CDR::OutputStream out;
    for (int round = 0; round < rounds; ++round) {
        const Clock::time_point start = Clock::now();
        out.clear();
        YV_Cxx::Marshal<Bench::Records>::write(out, records);
        r.encode = std::min(r.encode, seconds_since(start));

        Bench::Records back;
        const Clock::time_point start_read = Clock::now();
        YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
        YV_Cxx::Marshal<Bench::Records>::read(in, back);
        r.decode = std::min(r.decode, seconds_since(start_read));
        if (back.length() != records.length() || std::strcmp(back[17].name, records[17].name) != 0) {
            std::fprintf(stderr, "yv_cdr_bench: decoded records differ\n");
            std::exit(1);
        }
    }
    r.octets = out.size();
    r.checksum = cdr_bench::checksum(out.data(), out.size());
    return r;
}

bool run_peer(const std::string& path, int rounds, Result& r)
{
    const std::string command = "'" + path + "' " + std::to_string(rounds);
    FILE* p = popen(command.c_str(), "r");
    if (p == nullptr)
        return false;
    const int n = std::fscanf(p, "encode %lf decode %lf octets %zu checksum %llx", &r.encode, &r.decode, &r.octets,
                              &r.checksum);
    return pclose(p) == 0 && n == 4;
}

void print(const char* who, const Result& r)
{
    const double mb = static_cast<double>(r.octets) / 1e6;
    std::printf("  %-10s encode %8.1f MB/s (%7.3f ms)   decode %8.1f MB/s (%7.3f ms)\n", who, mb / r.encode,
                r.encode * 1e3, mb / r.decode, r.decode * 1e3);
}

} // namespace

int main(int argc, char** argv)
{
    int rounds = 50;
    std::string peer =
        (std::filesystem::read_symlink("/proc/self/exe").parent_path() / "yv_cdr_bench_omniorb").string();
    for (int i = 1; i < argc; ++i) {
        if (std::strcmp(argv[i], "--rounds") == 0 && i + 1 < argc) {
            rounds = std::max(1, std::atoi(argv[++i]));
        } else if (std::strcmp(argv[i], "--omniorb") == 0 && i + 1 < argc) {
            peer = argv[++i];
        } else {
            std::fprintf(stderr, "usage: yv_cdr_bench [--rounds N] [--omniorb PATH]\n");
            return 2;
        }
    }
    const Result ours = measure_ours(rounds);
    std::printf("CDR of sequence<Record>, 10000 records, %zu octets, best of %d rounds\n", ours.octets, rounds);
    print("yv_runtime", ours);
    Result theirs;
    if (!std::filesystem::exists(peer) || !run_peer(peer, rounds, theirs)) {
        std::printf("  omniORB side not available (%s): comparison skipped\n", peer.c_str());
        return 0;
    }
    print("omniORB", theirs);
    std::printf("  speed ratio yv_runtime / omniORB: encode %.2f, decode %.2f\n", theirs.encode / ours.encode,
                theirs.decode / ours.decode);
    if (theirs.octets != ours.octets || theirs.checksum != ours.checksum) {
        std::printf("  the two sides wrote different octets\n");
        return 1;
    }
    std::printf("  both sides wrote the same octets\n");
    return 0;
}
