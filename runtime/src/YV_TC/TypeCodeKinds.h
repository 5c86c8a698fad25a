// Which parameters a type code of each kind has.
#ifndef YV_RT_YV_TC_TYPECODEKINDS_H
#define YV_RT_YV_TC_TYPECODEKINDS_H

#include "zantic_sys/CORBA/Types.h"

namespace YV_TC {

// A repository id and a name.
inline bool has_id(CORBA::TCKind k)
{
    switch (k) {
    case CORBA::tk_objref:
    case CORBA::tk_struct:
    case CORBA::tk_union:
    case CORBA::tk_enum:
    case CORBA::tk_alias:
    case CORBA::tk_except:
    case CORBA::tk_value:
    case CORBA::tk_value_box:
    case CORBA::tk_native:
    case CORBA::tk_abstract_interface:
    case CORBA::tk_local_interface:
        return true;
    default:
        return false;
    }
}

// Members with names (enumerators included).
inline bool has_members(CORBA::TCKind k)
{
    return k == CORBA::tk_struct || k == CORBA::tk_union || k == CORBA::tk_enum || k == CORBA::tk_except ||
           k == CORBA::tk_value;
}

// A kind the CDR form writes without parameters.
inline bool is_simple(CORBA::TCKind k)
{
    switch (k) {
    case CORBA::tk_null:
    case CORBA::tk_void:
    case CORBA::tk_short:
    case CORBA::tk_long:
    case CORBA::tk_ushort:
    case CORBA::tk_ulong:
    case CORBA::tk_float:
    case CORBA::tk_double:
    case CORBA::tk_boolean:
    case CORBA::tk_char:
    case CORBA::tk_octet:
    case CORBA::tk_any:
    case CORBA::tk_TypeCode:
    case CORBA::tk_Principal:
    case CORBA::tk_longlong:
    case CORBA::tk_ulonglong:
    case CORBA::tk_longdouble:
    case CORBA::tk_wchar:
        return true;
    default:
        return false;
    }
}

// A kind that a recursive type code may return to: the types whose values
// end (a sequence may be empty, a value null).
inline bool may_recur(CORBA::TCKind k)
{
    return k == CORBA::tk_struct || k == CORBA::tk_union || k == CORBA::tk_except || k == CORBA::tk_value ||
           k == CORBA::tk_value_box;
}

} // namespace YV_TC

#endif
