// The string variables and out parameters of the CORBA module.
#ifndef YV_RT_CORBA_STRING_VAR_H
#define YV_RT_CORBA_STRING_VAR_H

#include "../YV_Cxx/StringOut.h"
#include "../YV_Cxx/StringVar.h"

namespace CORBA {

typedef YV_Cxx::StringVar<char> String_var;
typedef YV_Cxx::StringOut<char> String_out;
// The mapping's forms of the string typedefs of Types.h.
typedef String_var Identifier_var;
typedef String_out Identifier_out;
typedef String_var RepositoryId_var;
typedef String_out RepositoryId_out;
typedef YV_Cxx::StringVar<WChar> WString_var;
typedef YV_Cxx::StringOut<WChar> WString_out;

} // namespace CORBA

#endif
