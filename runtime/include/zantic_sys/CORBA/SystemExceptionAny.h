// System exceptions in anys: the type code of each (CORBA::_tc_BAD_PARAM
// ...) and of CompletionStatus, the insertion and extraction operators of
// the standard mapping, and their CDR form inside an any (the minor code and
// the completion status, as a struct).
#ifndef YV_RT_CORBA_SYSTEMEXCEPTIONANY_H
#define YV_RT_CORBA_SYSTEMEXCEPTIONANY_H

#include "../YV_Cxx/Marshal.h"
#include "Any.h"
#include "SystemException.h"
#include "TypeCode.h"

#include <type_traits>

namespace CORBA {

extern const TypeCode_ptr _tc_CompletionStatus;

#define YV_SYSTEM_EXCEPTION(name)                        \
    extern const TypeCode_ptr _tc_##name;                \
    void operator<<=(Any& a, const name& e);             \
    void operator<<=(Any& a, name* e);                   \
    Boolean operator>>=(const Any& a, const name*& e);
#include "SystemExceptions.def"
#undef YV_SYSTEM_EXCEPTION

} // namespace CORBA

namespace YV_Cxx {

template <class E>
struct Marshal<E, typename std::enable_if<std::is_base_of<CORBA::SystemException, E>::value>::type> {
    static constexpr std::size_t min_size = 8;
    static void write(YV_CDR::OutputStream& out, const E& v)
    {
        out.write_ulong(v.minor());
        out.write_ulong(static_cast<CORBA::ULong>(v.completed()));
    }
    static void read(YV_CDR::InputStream& in, E& v)
    {
        v.minor(in.read_ulong());
        const CORBA::ULong completed = in.read_ulong();
        if (completed > CORBA::COMPLETED_MAYBE)
            YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);
        v.completed(static_cast<CORBA::CompletionStatus>(completed));
    }
};

} // namespace YV_Cxx

#endif
