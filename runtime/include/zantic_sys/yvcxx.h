// What generated C++ code needs beyond the CORBA module: the cast and export
// macros, the streamable classes, and the in-process request path.
//
// Streamables by IDL type (extract() returns what the colocated dispatch
// code binds its references to):
//   basic types, enums, fixed   YV_Cxx::BasicStreamable<T>      T&
//   string, wstring             YV_Cxx::StringStreamable        char*&
//                               YV_Cxx::WStringStreamable       CORBA::WChar*&
//   any                         YV_Cxx::AnyStreamable           CORBA::Any*&
//   struct, union, sequence     YV_Cxx::VarStreamable<T>        T*&
//   array A                     YV_Cxx::ArrayStreamable<A>      A_slice*&
//   interface, Object, TypeCode YV_Cxx::ObjRefStreamable<T>     T*& (T_ptr&)
//   value type, ValueBase       YV_Cxx::ValueStreamable<T>      T*&
// (StreamableNames.h gives them names by kind as well.)
//
// Binding: a streamable constructed with the address of a variable works on
// that variable. A variable that holds the value itself (T*: basic types,
// enums, structures, sequences, anys, arrays as A*) is only referred to; a
// raw pointer slot (char**, T**, I_ptr*, A_slice**) is cleared and owned,
// unless the usage argument has YV_Cxx::usage_borrow; a _var or _out object
// is referred to and keeps ownership.
#ifndef YV_RT_YVCXX_H
#define YV_RT_YVCXX_H

#include "../omg/CORBA.hh"
#include "YV_Cxx/AbstractMarshal.h"
#include "YV_Cxx/AnyStreamable.h"
#include "YV_Cxx/ArrayMarshal.h"
#include "YV_Cxx/ArrayStreamable.h"
#include "YV_Cxx/BasicStreamable.h"
#include "YV_Cxx/BasicStringStreamable.h"
#include "YV_Cxx/CallArguments.h"
#include "YV_Cxx/ExceptionMarshal.h"
#include "YV_Cxx/FixedT.h"
#include "YV_Cxx/GeneratedValue.h"
#include "YV_Cxx/Marshal.h"
#include "YV_Cxx/PredefinedStreamables.h"
#include "YV_Cxx/RefMarshal.h"
#include "YV_Cxx/RefStreamable.h"
#include "YV_Cxx/SequenceMarshal.h"
#include "YV_Cxx/StreamableNames.h"
#include "YV_Cxx/StringMarshal.h"
#include "YV_Cxx/StringTypeCode.h"
#include "YV_Cxx/VarStreamable.h"
#include "YV_FWString.h"
#include "YV_Runtime.h"
#include "YV_Streamable.h"

#define YV_STATIC_CAST(type, ...) static_cast<type>(__VA_ARGS__)
#define YV_REINTERPRET_CAST(type, ...) reinterpret_cast<type>(__VA_ARGS__)
#define YV_ARRAY_IN_ARG_CONST const
#define YV_ARRAY_CONST_CAST(type, ...) const_cast<type>(__VA_ARGS__)

#if defined(_WIN32)
#define YV_DECLSPEC_EXPORT __declspec(dllexport)
#define YV_DECLSPEC_IMPORT __declspec(dllimport)
#elif defined(__GNUC__)
#define YV_DECLSPEC_EXPORT __attribute__((visibility("default")))
#define YV_DECLSPEC_IMPORT __attribute__((visibility("default")))
#else
#define YV_DECLSPEC_EXPORT
#define YV_DECLSPEC_IMPORT
#endif

#endif
