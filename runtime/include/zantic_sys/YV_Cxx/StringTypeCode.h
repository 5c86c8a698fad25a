// The type code of an anonymous bounded string or wide string, as generated
// implementation files define it at file level:
//   static const YV_Cxx::StringTypeCode _yv_tc_string_10(10, 0);
// It lives as long as the program and converts to CORBA::TypeCode_ptr.
#ifndef YV_RT_YV_CXX_STRINGTYPECODE_H
#define YV_RT_YV_CXX_STRINGTYPECODE_H

#include "../CORBA/TypeCode.h"

namespace YV_Cxx {

class StringTypeCode : public CORBA::TypeCode {
public:
    constexpr StringTypeCode(CORBA::ULong bound, int wide)
        : CORBA::TypeCode(wide ? CORBA::tk_wstring : CORBA::tk_string, bound)
    {
    }

    // Type codes are immutable; the pointer form is what the mapping passes.
    operator CORBA::TypeCode_ptr() const { return const_cast<StringTypeCode*>(this); }
};

} // namespace YV_Cxx

#endif
