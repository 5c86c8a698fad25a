// Type codes that generated implementation files define for themselves
// (anonymous bounded strings, YV_Cxx::StringTypeCode): a type code made at
// file level lives as long as the program.
#ifndef YV_RT_TC_POD_STRUCTS_H
#define YV_RT_TC_POD_STRUCTS_H

#include "CORBA/TypeCode.h"
#include "YV_Cxx/StringTypeCode.h"

#endif
