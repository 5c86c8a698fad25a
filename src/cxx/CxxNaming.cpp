#include "CxxNaming.h"

namespace {

std::string prefixed(const char* prefix, const char* word) { return std::string(prefix) + (word ? word : ""); }

} // namespace

std::string yvparam(const char* word) { return prefixed("_yvp_", word); }

std::string yvlocalvar(const char* word) { return prefixed("_yvl_", word); }

std::string yvtmpvar(const char* name) { return prefixed("_yvt_", name); }

std::string yvstrmvar(const char* name) { return prefixed("_yvs_", name); }

std::string apply_name_format(const std::string& format, const std::string& name)
{
    if (format == "%s")
        return name;
    std::string out;
    bool substituted = false;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] == '%' && i + 1 < format.size()) {
            if (format[i + 1] == '%') {
                out += '%';
                ++i;
                continue;
            }
            if (format[i + 1] == 's' && !substituted) {
                out += name;
                substituted = true;
                ++i;
                continue;
            }
        }
        out += format[i];
    }
    return out;
}
