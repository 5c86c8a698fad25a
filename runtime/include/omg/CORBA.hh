// The CORBA module as the C++ mapping gives it to client code: basic types,
// strings, exceptions, type codes, anys, argument lists, object references,
// the ORB, value types, fixed-point values, and the templates behind
// the generated _var, _out and sequence types.
#ifndef YV_RT_OMG_CORBA_HH
#define YV_RT_OMG_CORBA_HH

#include "../zantic_sys/CORBA/AbstractBase.h"
#include "../zantic_sys/CORBA/Any.h"
#include "../zantic_sys/CORBA/CustomMarshal.h"
#include "../zantic_sys/CORBA/DataInputStream.h"
#include "../zantic_sys/CORBA/DataOutputStream.h"
#include "../zantic_sys/CORBA/Exception.h"
#include "../zantic_sys/CORBA/Fixed.h"
#include "../zantic_sys/CORBA/NVList.h"
#include "../zantic_sys/CORBA/NamedValue.h"
#include "../zantic_sys/CORBA/ORB.h"
#include "../zantic_sys/CORBA/Object.h"
#include "../zantic_sys/CORBA/Policy.h"
#include "../zantic_sys/CORBA/Principal.h"
#include "../zantic_sys/CORBA/String_var.h"
#include "../zantic_sys/CORBA/SystemException.h"
#include "../zantic_sys/CORBA/SystemExceptionAny.h"
#include "../zantic_sys/CORBA/TypeCode.h"
#include "../zantic_sys/CORBA/Types.h"
#include "../zantic_sys/CORBA/ValueBase.h"
#include "../zantic_sys/CORBA/string_functions.h"
#include "../zantic_sys/YV_Cxx/Array_forany.h"
#include "../zantic_sys/YV_Cxx/Array_out.h"
#include "../zantic_sys/YV_Cxx/Array_var.h"
#include "../zantic_sys/YV_Cxx/Fix_var.h"
#include "../zantic_sys/YV_Cxx/FixedT.h"
#include "../zantic_sys/YV_Cxx/Ref_out.h"
#include "../zantic_sys/YV_Cxx/Ref_var.h"
#include "../zantic_sys/YV_Cxx/Sequence.h"
#include "../zantic_sys/YV_Cxx/TypeCodeMarshal.h"
#include "../zantic_sys/YV_Cxx/Var_out.h"
#include "../zantic_sys/YV_Cxx/Var_var.h"
#include "../zantic_sys/YV_Cxx/array_functions.h"
#include "../zantic_sys/YV_FWString.h"

namespace CORBA {

typedef YV_Cxx::ObjRef_var<TypeCode> TypeCode_var;
typedef YV_Cxx::ObjRef_out<TypeCode> TypeCode_out;
typedef YV_Cxx::ObjRef_var<Principal> Principal_var;
typedef YV_Cxx::ObjRef_out<Principal> Principal_out;
typedef YV_Cxx::Value_var<ValueBase> ValueBase_var;
typedef YV_Cxx::Value_out<ValueBase> ValueBase_out;
typedef YV_Cxx::Fix_var<Fixed> Fixed_var;
typedef Fixed& Fixed_out;

} // namespace CORBA

#endif
