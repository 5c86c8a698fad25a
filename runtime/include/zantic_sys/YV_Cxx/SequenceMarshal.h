// Sequences in CDR: the element count, then the elements. Runs of
// primitives go as one block; a count over the bound or beyond what the
// octets left can hold raises MARSHAL before anything is allocated.
#ifndef YV_RT_YV_CXX_SEQUENCEMARSHAL_H
#define YV_RT_YV_CXX_SEQUENCEMARSHAL_H

#include "Marshal.h"
#include "Sequence.h"

namespace YV_Cxx {

template <class T, CORBA::ULong Bound>
struct Marshal<Sequence<T, Bound>, std::enable_if_t<HasMarshal<T>::value>> {
    static constexpr std::size_t min_size = 4;

    static void write(YV_CDR::OutputStream& out, const Sequence<T, Bound>& v)
    {
        const CORBA::ULong n = v.length();
        if (Bound != 0 && n > Bound)
            throw CORBA::BAD_PARAM(0, CORBA::COMPLETED_NO);
        out.write_ulong(n);
        write_values(out, v.get_buffer(), n);
    }

    static void read(YV_CDR::InputStream& in, Sequence<T, Bound>& v)
    {
        const CORBA::ULong n = in.read_count(Marshal<T>::min_size);
        if (Bound != 0 && n > Bound)
            YV_CDR::InputStream::fail(YV_CDR::minor_bound);
        T* const into = v.yv_length_for_overwrite(n);
        if (n == 0)
            return;
        try {
            read_values(in, into, n);
        } catch (...) {
            // Elements not read yet hold whatever the buffer held.
            v.length(0);
            throw;
        }
    }
};

} // namespace YV_Cxx

#endif
