#include "UTL_ArgParser.h"

void UTL_ArgParser::initGetOptString(const char* text)
{
    m_elements.clear();
    m_next = 0;
    m_has_arg = false;
    m_arg.clear();
    if (!text)
        return;
    std::string current;
    for (const char* p = text;; ++p) {
        if (*p == ':' || *p == '\0') {
            if (!current.empty())
                m_elements.push_back(std::move(current));
            current.clear();
            if (*p == '\0')
                break;
        } else {
            current.push_back(*p);
        }
    }
}

int UTL_ArgParser::getOptString(const char* grammar)
{
    (void)grammar; // every letter is returned; the caller decides what it knows
    m_has_arg = false;
    m_arg.clear();
    while (m_next < m_elements.size()) {
        const std::string& e = m_elements[m_next++];
        if ((e[0] != '-' && e[0] != '+') || e.size() < 2)
            continue;
        m_sign = e[0];
        if (e.size() > 2) {
            m_arg = e.substr(2);
            m_has_arg = true;
        }
        return static_cast<unsigned char>(e[1]);
    }
    return -1;
}
