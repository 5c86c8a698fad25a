// The outcome of a client's checks: one line per check ("ok", "FAIL" with
// what went wrong, or "n/a" with why it was not run) and a summary.
#ifndef INTEROP_CHECK_REPORT_H
#define INTEROP_CHECK_REPORT_H

#include "InteropOrb.h"

#include <string>

namespace interop {

class CheckReport {
public:
    // Passes when `problems` is empty.
    void check(const std::string& name, const std::string& problems);
    void check(const std::string& name, bool passed, const std::string& detail);
    void not_run(const std::string& name, const std::string& why);
    // Prints the summary; true when nothing failed.
    bool finish() const;

    // "IDL:omg.org/CORBA/BAD_PARAM:1.0 minor 0x... completed NO" and the like.
    static std::string text(const CORBA::Exception& e);

private:
    int m_passed = 0;
    int m_failed = 0;
    int m_not_run = 0;
};

} // namespace interop

#endif
