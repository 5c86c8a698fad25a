// An argument list that lives on the stack and refers to an array of `n`
// named values (none when `values` is 0).
#ifndef YV_RT_YV_CXX_NV_STACKBASEDNVLIST_H
#define YV_RT_YV_CXX_NV_STACKBASEDNVLIST_H

#include "../CORBA/NVList.h"

namespace YV_Cxx_NV {

// Constructor and destructor are the runtime's, out of line: every dispatch
// function makes one.
class StackBasedNVList : public CORBA::NVList {
public:
    StackBasedNVList(CORBA::ULong n, CORBA::NamedValue** values);
    ~StackBasedNVList() override;
};

} // namespace YV_Cxx_NV

#endif
