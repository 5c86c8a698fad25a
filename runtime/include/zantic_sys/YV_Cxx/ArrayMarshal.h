// Arrays in CDR: the elements in order, no count. A multi-dimensional array
// is one run of its innermost elements, written as one block when they are
// primitives.
#ifndef YV_RT_YV_CXX_ARRAYMARSHAL_H
#define YV_RT_YV_CXX_ARRAYMARSHAL_H

#include "Marshal.h"

#include <type_traits>

namespace YV_Cxx {

template <class T, std::size_t N>
struct Marshal<T[N], std::enable_if_t<HasMarshal<std::remove_all_extents_t<T>>::value>> {
    typedef std::remove_all_extents_t<T> Element;
    // The innermost elements, which lie one after another.
    static constexpr std::size_t count = sizeof(T[N]) / sizeof(Element);
    static constexpr std::size_t min_size = count * Marshal<Element>::min_size;

    static void write(YV_CDR::OutputStream& out, const T (&v)[N])
    {
        write_values(out, reinterpret_cast<const Element*>(v), count);
    }
    static void read(YV_CDR::InputStream& in, T (&v)[N]) { read_values(in, reinterpret_cast<Element*>(v), count); }
};

} // namespace YV_Cxx

#endif
