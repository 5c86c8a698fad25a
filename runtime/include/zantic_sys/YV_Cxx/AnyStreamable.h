// The streamable of an any: extract() gives CORBA::Any*&.
#ifndef YV_RT_YV_CXX_ANYSTREAMABLE_H
#define YV_RT_YV_CXX_ANYSTREAMABLE_H

#include "../CORBA/Any.h"
#include "VarStreamable.h"

namespace YV_Cxx {

typedef VarStreamable<CORBA::Any> AnyStreamable;

} // namespace YV_Cxx

#endif
