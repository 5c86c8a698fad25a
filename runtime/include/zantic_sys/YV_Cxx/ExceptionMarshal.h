// User exceptions in CDR, as anys carry them: the members alone (the any's
// type code says which exception it is). Every exception class of generated
// code writes and reads its members (_yv_write_members, _yv_read_members),
// so one specialisation serves them all (exception classes without
// _yv_read_members, written by hand, do not travel).
#ifndef YV_RT_YV_CXX_EXCEPTIONMARSHAL_H
#define YV_RT_YV_CXX_EXCEPTIONMARSHAL_H

#include "../CORBA/Exception.h"
#include "Marshal.h"

#include <type_traits>
#include <utility>

namespace YV_Cxx {

template <class E, class Enable = void>
struct IsGeneratedException : std::false_type {
};
template <class E>
struct IsGeneratedException<E, std::void_t<decltype(std::declval<E&>()._yv_read_members(
                                    std::declval<YV_CDR::InputStream&>()))>>
    : std::is_base_of<CORBA::UserException, E> {
};

template <class E>
struct Marshal<E, std::enable_if_t<IsGeneratedException<E>::value>> {
    // An exception without members.
    static constexpr std::size_t min_size = 0;

    static void write(YV_CDR::OutputStream& out, const E& v) { v._yv_write_members(out); }
    static void read(YV_CDR::InputStream& in, E& v) { v._yv_read_members(in); }
};

} // namespace YV_Cxx

#endif
