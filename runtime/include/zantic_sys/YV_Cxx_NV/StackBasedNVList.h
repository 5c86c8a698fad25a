// An argument list that lives on the stack and refers to an array of `n`
// named values (none when `values` is 0).
#ifndef YV_RT_YV_CXX_NV_STACKBASEDNVLIST_H
#define YV_RT_YV_CXX_NV_STACKBASEDNVLIST_H

#include "../CORBA/NVList.h"

namespace YV_Cxx_NV {

class StackBasedNVList : public CORBA::NVList {
public:
    StackBasedNVList(CORBA::ULong n, CORBA::NamedValue** values)
    {
        for (CORBA::ULong i = 0; values != nullptr && i < n; ++i)
            yv_append(values[i]);
    }
};

} // namespace YV_Cxx_NV

#endif
