#include "zantic_sys/YV_Cxx_NV/StackBasedNVList.h"

namespace YV_Cxx_NV {

StackBasedNVList::StackBasedNVList(CORBA::ULong n, CORBA::NamedValue** values) : CORBA::NVList(n, values) {}

StackBasedNVList::~StackBasedNVList() = default;

} // namespace YV_Cxx_NV
