// The basic types of the CORBA module, the small enumerations shared by the
// pseudo objects, and the pointer names of the pseudo objects.
#ifndef YV_RT_CORBA_TYPES_H
#define YV_RT_CORBA_TYPES_H

#include <cstdint>

namespace CORBA {

typedef bool Boolean;
typedef char Char;
typedef wchar_t WChar;
typedef unsigned char Octet;
typedef std::int16_t Short;
typedef std::uint16_t UShort;
typedef std::int32_t Long;
typedef std::uint32_t ULong;
typedef std::int64_t LongLong;
typedef std::uint64_t ULongLong;
typedef float Float;
typedef double Double;
typedef long double LongDouble;

// Out parameters of the basic types are plain references.
typedef Boolean& Boolean_out;
typedef Char& Char_out;
typedef WChar& WChar_out;
typedef Octet& Octet_out;
typedef Short& Short_out;
typedef UShort& UShort_out;
typedef Long& Long_out;
typedef ULong& ULong_out;
typedef LongLong& LongLong_out;
typedef ULongLong& ULongLong_out;
typedef Float& Float_out;
typedef Double& Double_out;
typedef LongDouble& LongDouble_out;

// A repository id travels as a string the receiver owns.
typedef char* RepositoryId;
typedef char* Identifier;

enum CompletionStatus { COMPLETED_YES, COMPLETED_NO, COMPLETED_MAYBE };
typedef CompletionStatus& CompletionStatus_out;

// Flags of a named value: the direction of an argument.
typedef ULong Flags;
typedef Flags& Flags_out;
const Flags ARG_IN = 0x1;
const Flags ARG_OUT = 0x2;
const Flags ARG_INOUT = 0x4;
const Flags OUT_LIST_MEMORY = 0x8;
const Flags IN_COPY_VALUE = 0x10;

enum TCKind {
    tk_null, tk_void, tk_short, tk_long, tk_ushort, tk_ulong, tk_float, tk_double,
    tk_boolean, tk_char, tk_octet, tk_any, tk_TypeCode, tk_Principal, tk_objref,
    tk_struct, tk_union, tk_enum, tk_string, tk_sequence, tk_array, tk_alias,
    tk_except, tk_longlong, tk_ulonglong, tk_longdouble, tk_wchar, tk_wstring,
    tk_fixed, tk_value, tk_value_box, tk_native, tk_abstract_interface,
    tk_local_interface
};
typedef TCKind& TCKind_out;

class Any;
class Exception;
class NamedValue;
class NVList;
class Object;
class ORB;
class Principal;
class TypeCode;
class ValueBase;
class YV_ServerRequest;

typedef NamedValue* NamedValue_ptr;
typedef NVList* NVList_ptr;
typedef Object* Object_ptr;
typedef Principal* Principal_ptr;
typedef TypeCode* TypeCode_ptr;
typedef YV_ServerRequest* YV_ServerRequest_ptr;
typedef ORB* ORB_ptr;
// The dispatch code asks every request for its ORB even when it hands the
// ORB to no streamable; the attribute keeps such a variable from being
// reported as unused.
#if defined(__GNUC__)
typedef ORB* YV_ORB_ptr __attribute__((unused));
#else
typedef ORB* YV_ORB_ptr;
#endif

} // namespace CORBA

#endif
