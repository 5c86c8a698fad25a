// A named value that lives on a dispatch function's stack and refers to an
// any of the same function.
#ifndef YV_RT_YV_CXX_NV_STACKBASEDNAMEDVALUE_H
#define YV_RT_YV_CXX_NV_STACKBASEDNAMEDVALUE_H

#include "../CORBA/NamedValue.h"

namespace YV_Cxx_NV {

class StackBasedNamedValue : public CORBA::NamedValue {
public:
    StackBasedNamedValue(CORBA::Any& value, CORBA::Flags flags);
    ~StackBasedNamedValue() override;
};

} // namespace YV_Cxx_NV

#endif
