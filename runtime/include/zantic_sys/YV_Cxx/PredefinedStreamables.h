// The streamables of the predefined types are instantiated once, in the
// runtime (PredefinedStreamables.cpp); generated code and programs use
// those instead of compiling their own in every file.
#ifndef YV_RT_YV_CXX_PREDEFINEDSTREAMABLES_H
#define YV_RT_YV_CXX_PREDEFINEDSTREAMABLES_H

#include "../CORBA/Object.h"
#include "../CORBA/TypeCode.h"
#include "AnyStreamable.h"
#include "BasicStreamable.h"
#include "BasicStringStreamable.h"
#include "RefStreamable.h"
#include "TypeCodeMarshal.h"

// X(slot, value, streamable...) for each: the class and its SlotStreamable
// base are SlotStreamable<streamable, slot, value>.
#define YV_PREDEFINED_STREAMABLES(X)                                                  \
    X(CORBA::Short, CORBA::Short, BasicStreamable<CORBA::Short>)                     \
    X(CORBA::UShort, CORBA::UShort, BasicStreamable<CORBA::UShort>)                  \
    X(CORBA::Long, CORBA::Long, BasicStreamable<CORBA::Long>)                        \
    X(CORBA::ULong, CORBA::ULong, BasicStreamable<CORBA::ULong>)                     \
    X(CORBA::LongLong, CORBA::LongLong, BasicStreamable<CORBA::LongLong>)            \
    X(CORBA::ULongLong, CORBA::ULongLong, BasicStreamable<CORBA::ULongLong>)         \
    X(CORBA::Float, CORBA::Float, BasicStreamable<CORBA::Float>)                     \
    X(CORBA::Double, CORBA::Double, BasicStreamable<CORBA::Double>)                  \
    X(CORBA::LongDouble, CORBA::LongDouble, BasicStreamable<CORBA::LongDouble>)      \
    X(CORBA::Boolean, CORBA::Boolean, BasicStreamable<CORBA::Boolean>)               \
    X(CORBA::Char, CORBA::Char, BasicStreamable<CORBA::Char>)                        \
    X(CORBA::WChar, CORBA::WChar, BasicStreamable<CORBA::WChar>)                     \
    X(CORBA::Octet, CORBA::Octet, BasicStreamable<CORBA::Octet>)                     \
    X(char*, char*, BasicStringStreamable<char>)                                     \
    X(CORBA::WChar*, CORBA::WChar*, BasicStringStreamable<CORBA::WChar>)             \
    X(CORBA::Any*, CORBA::Any, VarStreamable<CORBA::Any>)                            \
    X(CORBA::Object*, CORBA::Object, RefStreamable<CORBA::Object, ObjRefTraits<CORBA::Object>>) \
    X(CORBA::TypeCode*, CORBA::TypeCode, RefStreamable<CORBA::TypeCode, ObjRefTraits<CORBA::TypeCode>>)

namespace YV_Cxx {

#define YV_EXTERN_STREAMABLE(slot, value, ...)                      \
    extern template class SlotStreamable<__VA_ARGS__, slot, value>; \
    extern template class __VA_ARGS__;
YV_PREDEFINED_STREAMABLES(YV_EXTERN_STREAMABLE)
#undef YV_EXTERN_STREAMABLE

} // namespace YV_Cxx

#endif
