// Collects what is written on std::cerr while it exists.
#ifndef YV_STDERRCAPTURE_H
#define YV_STDERRCAPTURE_H

#include <iostream>
#include <sstream>
#include <string>

namespace yvtest {

class StderrCapture {
public:
    StderrCapture() : m_saved(std::cerr.rdbuf(m_text.rdbuf())) {}
    ~StderrCapture() { std::cerr.rdbuf(m_saved); }
    StderrCapture(const StderrCapture&) = delete;
    StderrCapture& operator=(const StderrCapture&) = delete;

    std::string text() const { return m_text.str(); }

private:
    std::ostringstream m_text;
    std::streambuf* m_saved;
};

} // namespace yvtest

#endif
