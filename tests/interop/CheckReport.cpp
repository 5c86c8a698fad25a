#include "CheckReport.h"

#include <cstdio>

namespace interop {

void CheckReport::check(const std::string& name, const std::string& problems)
{
    check(name, problems.empty(), problems);
}

void CheckReport::check(const std::string& name, bool passed, const std::string& detail)
{
    if (passed) {
        ++m_passed;
        std::printf("ok   %s\n", name.c_str());
    } else {
        ++m_failed;
        std::printf("FAIL %s: %s\n", name.c_str(), detail.c_str());
    }
    std::fflush(stdout);
}

void CheckReport::not_run(const std::string& name, const std::string& why)
{
    ++m_not_run;
    std::printf("n/a  %s: %s\n", name.c_str(), why.c_str());
    std::fflush(stdout);
}

bool CheckReport::finish() const
{
    std::printf("== %d checks: %d passed, %d failed, %d not run\n", m_passed + m_failed + m_not_run, m_passed,
                m_failed, m_not_run);
    std::fflush(stdout);
    return m_failed == 0;
}

std::string CheckReport::text(const CORBA::Exception& e)
{
    std::string result = e._rep_id();
    if (const CORBA::SystemException* system = CORBA::SystemException::_downcast(&e)) {
        static const char* const completions[] = {"YES", "NO", "MAYBE"};
        char minor[32];
        std::snprintf(minor, sizeof minor, " minor 0x%lx completed ", static_cast<unsigned long>(system->minor()));
        const int completed = static_cast<int>(system->completed());
        result += minor;
        result += completed >= 0 && completed < 3 ? completions[completed] : "?";
    }
    return result;
}

} // namespace interop
