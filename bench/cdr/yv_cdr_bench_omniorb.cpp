// The omniORB side of yv_cdr_bench: the same records, marshalled by the
// code omniidl -bcxx writes for Record.idl into omniORB's cdrMemoryStream.
// Prints one line (see CdrBenchData.h); run by yv_cdr_bench.
//
//   yv_cdr_bench_omniorb ROUNDS
#include "CdrBenchData.h"
#include "Record.hh"

#include <omniORB4/codeSets.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>

namespace {

typedef std::chrono::steady_clock Clock;

double seconds_since(Clock::time_point start) { return std::chrono::duration<double>(Clock::now() - start).count(); }

} // namespace

int main(int argc, char** argv)
{
    const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 50;
    int no_args = 1;
    CORBA::ORB_var orb = CORBA::ORB_init(no_args, argv);
    // The code set a GIOP 1.2 connection would have agreed on.
    const GIOP::Version giop12 = {1, 2};
    omni::omniCodeSet::TCS_C* latin1 = omni::omniCodeSet::getTCS_C(omni::omniCodeSet::ID_8859_1, giop12);
    const std::vector<cdr_bench::Plain> plain = cdr_bench::make_records();
    Bench::Records records;
    records.length(static_cast<CORBA::ULong>(plain.size()));
    for (CORBA::ULong i = 0; i < records.length(); ++i) {
        records[i].id = plain[i].id;
        records[i].name = plain[i].name.c_str();
        records[i].values.length(static_cast<CORBA::ULong>(plain[i].values.size()));
        std::copy(plain[i].values.begin(), plain[i].values.end(), records[i].values.get_buffer());
    }
    double encode = 1e9;
    double decode = 1e9;
    // Zeroed memory, so that padding octets are zero as this runtime
    // writes them and the checksums compare.
    cdrMemoryStream out(0, true);
    out.TCS_C(latin1);
    for (int round = 0; round < rounds; ++round) {
        const Clock::time_point start = Clock::now();
        out.rewindPtrs();
        records >>= out;
        encode = std::min(encode, seconds_since(start));

        Bench::Records back;
        const Clock::time_point start_read = Clock::now();
        cdrMemoryStream in(out.bufPtr(), out.bufSize());
        in.TCS_C(latin1);
        back <<= in;
        decode = std::min(decode, seconds_since(start_read));
        if (back.length() != records.length() || std::strcmp(back[17].name, records[17].name) != 0)
            return 1;
    }
    cdr_bench::report(encode, decode, out.bufSize(), cdr_bench::checksum(out.bufPtr(), out.bufSize()));
    orb->destroy();
    return 0;
}
