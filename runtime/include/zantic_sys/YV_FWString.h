// A repository id as the generated code names it: each client class holds
// its own as the static `_yv_fw_type_id`, and skeletons compare ids with ==.
#ifndef YV_RT_YV_FWSTRING_H
#define YV_RT_YV_FWSTRING_H

#include <string>

class YV_FWString {
public:
    YV_FWString() = default;
    YV_FWString(const char* text) : m_text(text ? text : "") {}
    YV_FWString(std::string text) : m_text(std::move(text)) {}

    const char* c_str() const { return m_text.c_str(); }
    bool empty() const { return m_text.empty(); }

    friend bool operator==(const YV_FWString& a, const YV_FWString& b) { return a.m_text == b.m_text; }
    friend bool operator!=(const YV_FWString& a, const YV_FWString& b) { return !(a == b); }

private:
    std::string m_text;
};

#endif
