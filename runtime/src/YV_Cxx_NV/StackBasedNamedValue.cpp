#include "zantic_sys/YV_Cxx_NV/StackBasedNamedValue.h"

namespace YV_Cxx_NV {

StackBasedNamedValue::StackBasedNamedValue(CORBA::Any& value, CORBA::Flags flags) : CORBA::NamedValue(value, flags) {}

StackBasedNamedValue::~StackBasedNamedValue() = default;

} // namespace YV_Cxx_NV
