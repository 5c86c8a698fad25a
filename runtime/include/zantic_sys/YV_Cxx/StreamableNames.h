// Names of the streamable classes by IDL type kind, for code that spells a
// streamable by kind rather than by the class that serves it.
#ifndef YV_RT_YV_CXX_STREAMABLENAMES_H
#define YV_RT_YV_CXX_STREAMABLENAMES_H

#include "../CORBA/Fixed.h"
#include "../CORBA/Object.h"
#include "../CORBA/Principal.h"
#include "../CORBA/TypeCode.h"
#include "../CORBA/ValueBase.h"
#include "AnyStreamable.h"
#include "BasicStreamable.h"
#include "RefStreamable.h"
#include "VarStreamable.h"

namespace YV_Cxx {

typedef BasicStreamable<CORBA::Long> LongStreamable;
typedef BasicStreamable<CORBA::ULong> ULongStreamable;
typedef BasicStreamable<CORBA::LongLong> LongLongStreamable;
typedef BasicStreamable<CORBA::ULongLong> ULongLongStreamable;
typedef BasicStreamable<CORBA::Short> ShortStreamable;
typedef BasicStreamable<CORBA::UShort> UShortStreamable;
typedef BasicStreamable<CORBA::Float> FloatStreamable;
typedef BasicStreamable<CORBA::Double> DoubleStreamable;
typedef BasicStreamable<CORBA::LongDouble> LongDoubleStreamable;
typedef BasicStreamable<CORBA::Char> CharStreamable;
typedef BasicStreamable<CORBA::WChar> WCharStreamable;
typedef BasicStreamable<CORBA::Boolean> BooleanStreamable;
typedef BasicStreamable<CORBA::Octet> OctetStreamable;

typedef ObjRefStreamable<CORBA::TypeCode> TypeCodeStreamable;
typedef ObjRefStreamable<CORBA::Principal> PrincipalStreamable;
typedef ObjRefStreamable<CORBA::Object> ObjectStreamable;
typedef ValueStreamable<CORBA::ValueBase> ValueBaseStreamable;

template <class E>
using EnumStreamable = BasicStreamable<E>;
template <class F>
using FixedStreamable = BasicStreamable<F>;
template <class I>
using ObjrefStreamable = ObjRefStreamable<I>;
template <class S>
using StructStreamable = VarStreamable<S>;
template <class U>
using UnionStreamable = VarStreamable<U>;
template <class Q>
using SequenceStreamable = VarStreamable<Q>;

} // namespace YV_Cxx

#endif
