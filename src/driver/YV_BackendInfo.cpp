#include "YV_BackendInfo.h"

const std::vector<YV_BackendInfo>& YV_BackendInfo::known()
{
    static const std::vector<YV_BackendInfo> table = {
        {"poa", "libyv_poa_cxx_ibe.so", "POACxxInit", "POACxxUsage",
         "POA skeleton header and implementation (fooS.hh, fooS.cxx)"},
        {"base", "libyv_cxx_ibe.so", "CxxInit", "CxxUsage", "C++ client mapping"},
    };
    return table;
}

const YV_BackendInfo* YV_BackendInfo::find(const std::string& switch_name)
{
    for (const YV_BackendInfo& info : known())
        if (info.switch_name == switch_name)
            return &info;
    return nullptr;
}
