// Runs the POACxx generator over IDL text in a scratch directory and hands
// back what it wrote.
#ifndef POATESTSUPPORT_H
#define POATESTSUPPORT_H

#include <map>
#include <string>

namespace poatest {

struct PoaRun {
    bool parsed = false;      // the front end accepted the IDL
    std::string hh;           // the skeleton header ("" when not written)
    std::string cxx;          // the skeleton implementation file ("" when not written)
    bool hh_written = false;
    bool cxx_written = false;
    std::string err;          // everything written on the error stream
    long errors = 0;          // errors counted during generation
    std::string dir;          // the scratch directory (removed by the next run)
};

// Writes `idl` as `file_name` (and each of `extra_files`, name -> text) into
// a fresh scratch directory, parses it with that directory as include
// directory, and runs a fresh GEN_POACxx with `options` (may be null) in
// that directory. `hh_name`/`cxx_name` are the files read back (default:
// the base name of `file_name` with "S.hh"/"S.cxx").
PoaRun run_poa(const std::string& idl, const char* options, const std::string& file_name = "test.idl",
               const std::map<std::string, std::string>& extra_files = {}, const std::string& hh_name = "",
               const std::string& cxx_name = "");

// The number of times `what` stands in `text`.
std::size_t count(const std::string& text, const std::string& what);

// The golden file's path under tests/poa/data/.
std::string golden_path(const std::string& name);

} // namespace poatest

#endif
