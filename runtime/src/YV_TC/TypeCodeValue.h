// A value this process knows only by its type code (a value in an any of a
// type it has no class for, or one being passed on or compared): the state
// is kept in CDR, each value nested in it as a value of its own, so that
// it can be written again in another byte order or alignment, sharing
// kept.
#ifndef YV_RT_YV_TC_TYPECODEVALUE_H
#define YV_RT_YV_TC_TYPECODEVALUE_H

#include "omg/CORBA.hh"
#include "zantic_sys/CORBA/ValueBase.h"
#include "zantic_sys/YV_CDR/OutputStream.h"
#include "zantic_sys/YV_Cxx/Ref_var.h"

#include <vector>

namespace YV_TC {

class TypeCodeValue : public CORBA::ValueBase {
public:
    // `tc`: a value type or value box (aliases allowed).
    explicit TypeCodeValue(CORBA::TypeCode_ptr tc);

    // Reads a value of type `tc` (a value type or value box) from `in`:
    // null, one read before from the stream, or a new TypeCodeValue (no
    // factory is asked).
    static CORBA::ValueBase* read(YV_CDR::InputStream& in, CORBA::TypeCode_ptr tc);
    // Drops the values nested in `v` and in the TypeCodeValues it reaches,
    // so that a graph with cycles is freed once nothing holds it.
    static void cut(CORBA::ValueBase* v);
    // Cuts the graphs of `roots` when nothing but they and the graphs
    // themselves hold their TypeCodeValues (values apart of an any that
    // goes); a graph someone else holds is left whole.
    static void drop(std::vector<YV_Cxx::Value_var<CORBA::ValueBase>>& roots);
    static bool is(CORBA::ValueBase* v) { return dynamic_cast<TypeCodeValue*>(v) != nullptr; }

    const char* const* _yv_type_ids(CORBA::ULong& count) const override;
    CORBA::Boolean _yv_is_chunked() const override;
    void _yv_marshal_state(YV_CDR::OutputStream& out) const override;
    void _yv_unmarshal_state(YV_CDR::InputStream& in) override;

private:
    ~TypeCodeValue() override = default;

    CORBA::TypeCode_var m_type;
    std::vector<const char*> m_ids;
    YV_CDR::OutputStream m_state;
    std::vector<YV_Cxx::Value_var<CORBA::ValueBase>> m_values;
};

} // namespace YV_TC

#endif
