#include "zantic_sys/CORBA/SystemExceptionAny.h"

#include "zantic_sys/YV_Cxx/AnyInsert.h"
#include "zantic_sys/YV_Cxx/VarStreamable.h"

namespace CORBA {

namespace {

const TypeCode::Member completion_members[] = {
    {"COMPLETED_YES", nullptr, 0, 0},
    {"COMPLETED_NO", nullptr, 0, 0},
    {"COMPLETED_MAYBE", nullptr, 0, 0},
};
TypeCode tc_CompletionStatus =
    TypeCode::yv_enum("IDL:omg.org/CORBA/CompletionStatus:1.0", "CompletionStatus", completion_members, 3);

const TypeCode::Member exception_members[] = {
    {"minor", &_tc_ulong, 0, 0},
    {"completed", &_tc_CompletionStatus, 0, 0},
};

#define YV_SYSTEM_EXCEPTION(name)                                                                                  \
    TypeCode tc_##name = TypeCode::yv_struct(tk_except, "IDL:omg.org/CORBA/" #name ":1.0", #name, exception_members, 2);
#include "zantic_sys/CORBA/SystemExceptions.def"
#undef YV_SYSTEM_EXCEPTION

} // namespace

const TypeCode_ptr _tc_CompletionStatus = &tc_CompletionStatus;

#define YV_SYSTEM_EXCEPTION(name)                                                                      \
    const TypeCode_ptr _tc_##name = &tc_##name;                                                        \
    void operator<<=(Any& a, const name& e)                                                            \
    {                                                                                                  \
        YV_Cxx::any_insert_copy<YV_Cxx::VarStreamable<name>>(a, _tc_##name, e);                        \
    }                                                                                                  \
    void operator<<=(Any& a, name* e) { YV_Cxx::any_insert_adopt<YV_Cxx::VarStreamable<name>>(a, _tc_##name, e); } \
    Boolean operator>>=(const Any& a, const name*& e)                                                  \
    {                                                                                                  \
        return YV_Cxx::any_extract_ptr<YV_Cxx::VarStreamable<name>>(a, _tc_##name, e);                 \
    }
#include "zantic_sys/CORBA/SystemExceptions.def"
#undef YV_SYSTEM_EXCEPTION

} // namespace CORBA
