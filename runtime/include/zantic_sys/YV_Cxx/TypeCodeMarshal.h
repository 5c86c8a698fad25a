// A type code in CDR, for the mapping's CORBA::TypeCode_var.
#ifndef YV_RT_YV_CXX_TYPECODEMARSHAL_H
#define YV_RT_YV_CXX_TYPECODEMARSHAL_H

#include "../CORBA/TypeCode.h"
#include "Marshal.h"
#include "RefTraits.h"
#include "Ref_var.h"

namespace YV_Cxx {

template <>
struct Marshal<Ref_var<CORBA::TypeCode, ObjRefTraits<CORBA::TypeCode>>> {
    typedef Ref_var<CORBA::TypeCode, ObjRefTraits<CORBA::TypeCode>> Var;
    static constexpr std::size_t min_size = 4;
    static void write(YV_CDR::OutputStream& out, const Var& v) { CORBA::TypeCode::_yv_write(out, v.in()); }
    static void read(YV_CDR::InputStream& in, Var& v) { v = CORBA::TypeCode::_yv_read(in); }
};

} // namespace YV_Cxx

#endif
