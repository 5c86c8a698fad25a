// The base of the streamables: a typed handle on one value that an any
// carries. A streamable is bound to storage that someone else owns (a
// caller's argument, a local variable of a dispatch function) or owns a
// value of its own; extract() of each concrete class gives the storage.
#ifndef YV_RT_YV_STREAMABLE_H
#define YV_RT_YV_STREAMABLE_H

#include "CORBA/Types.h"

#include <memory>

namespace YV_CDR {
class InputStream;
class OutputStream;
} // namespace YV_CDR

// On a function of a class template that generated code calls at many
// places: one copy per instantiation in the object, called, instead of
// one inlined at every call.
#if defined(__GNUC__)
#define YV_OUT_OF_LINE __attribute__((noinline))
#else
#define YV_OUT_OF_LINE
#endif

class YV_Streamable {
public:
    virtual ~YV_Streamable();

    // Replaces this streamable's value with a deep copy of the value of
    // `from`, which must be a streamable of the same class (MARSHAL if not).
    virtual void yv_copy_value(const YV_Streamable& from) = 0;
    // A streamable of the same class owning a deep copy of this value.
    virtual std::unique_ptr<YV_Streamable> yv_clone() const = 0;
    // The value's type code where the class knows it, else tk_null.
    virtual CORBA::TypeCode_ptr yv_type() const;

    // Writes the value in CDR; reads a value into the streamable's storage
    // (allocating where the storage is a pointer slot). The base raises
    // MARSHAL: a class that cannot travel.
    virtual void yv_write(YV_CDR::OutputStream& out) const;
    virtual void yv_read(YV_CDR::InputStream& in);

    YV_Streamable(const YV_Streamable&) = delete;
    YV_Streamable& operator=(const YV_Streamable&) = delete;

protected:
    YV_Streamable() = default;
    // Throws MARSHAL: `from` is not of the class the receiver expected.
    [[noreturn]] static void yv_type_mismatch();
};

// Usage values given to streamable constructors. The dispatch functions give
// the direction of the value with bit 0x20 set. A streamable bound to a raw
// pointer slot (char**, T**, A_slice** ...) owns what the slot points to: it
// clears the slot on construction and frees its value on destruction, as
// such slots are fresh locals of a dispatch function. The one exception is
// usage_borrow: a caller that binds a streamable to a slot whose value it
// keeps (a proxy's out argument or result) adds it.
namespace YV_Cxx {
enum Usage : long {
    usage_none = 0,
    usage_dispatch = 0x20,
    usage_in = 0x21,
    usage_inout = 0x22,
    usage_out = 0x24,
    usage_result = 0x28,
    usage_borrow = 0x40
};
inline bool owns_slot(long usage) { return (usage & usage_borrow) == 0; }
} // namespace YV_Cxx

#endif
