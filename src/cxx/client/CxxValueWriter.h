// What the client mapping writes for value types beyond their abstract
// classes: the members through which a value travels (its repository ids,
// whether it is written in chunks, its state through its accessors), the
// concrete OBV_ classes that hold the state, the default factories, and
// the state of value boxes.
//
// A value's state is marshaled by the abstract class through its own
// accessors (private state members' accessors are protected there), so a
// value class written by hand over the abstract class travels as well as
// the OBV_ class does:
//
//   void
//   M::Point::_yv_marshal_state(YV_CDR::OutputStream& _yvp_out) const
//   {
//       _yvp_out.write_long(x());
//       YV_Cxx::Marshal<CORBA::String_var>::write(_yvp_out, label());
//   }
//
// A concrete value base's state comes first, then a call that lets a
// chunked value start a chunk for the derived level.
#ifndef CXXVALUEWRITER_H
#define CXXVALUEWRITER_H

#include "CxxPrinter.h"

#include <string>
#include <vector>

class AST_StateMember;
class AST_Type;
class AST_Union;
class AST_Value;
class AST_ValueBox;
class CxxMarshalWriter;
class CxxTypeMapping;
class NameResolver;

class CxxValueWriter {
public:
    CxxValueWriter(const CxxTypeMapping& map, NameResolver& resolver, const CxxMarshalWriter& marshal)
        : m_map(map), m_resolver(resolver), m_marshal(marshal)
    {
    }

    // True for value types whose class carries its state through the
    // runtime: concrete, not custom.
    static bool marshals_state(AST_Value* v);
    // True for value types that get a concrete factory and have their OBV_
    // class made when received: concrete, not custom, without operations
    // or attributes (their own, their bases', or of interfaces they
    // support) and without initializers.
    static bool has_default_factory(AST_Value* v);
    // The value base whose state precedes `v`'s (its first base when that
    // is concrete), or null.
    static AST_Value* concrete_base(AST_Value* v);
    // The state members of `v` in declaration order.
    static std::vector<AST_StateMember*> state_members(AST_Value* v);

    // Header, inside the abstract class of `v` (public): the repository id,
    // _copy_value and the members the runtime's value encoder calls.
    void write_class_members(CxxPrinter& p, AST_Value* v) const;
    // Header, at file scope: the OBV_ class of `v` inside its namespaces
    // (OBV_<outermost module>, then the inner modules).
    void write_obv_class(CxxPrinter& p, AST_Value* v) const;
    // Header, inside a value box's class (public): _boxed_in, _boxed_inout
    // and _boxed_out; for a string box adoption of strings and indexing,
    // for a sequence box its length and elements, for a structure box an
    // accessor per member, for a union box _d and the branches' accessors.
    void write_box_accessors(CxxPrinter& p, AST_ValueBox* b) const;
    // Header, inside a value box's class (public): what the runtime calls.
    void write_box_members(CxxPrinter& p, AST_ValueBox* b) const;

    // Source: the bodies of what write_class_members declares out of line,
    // and the default factory with its registration.
    void write_definitions(CxxPrinter& p, AST_Value* v) const;
    void write_box_definitions(CxxPrinter& p, AST_ValueBox* b) const;

private:
    void write_union_box_accessors(CxxPrinter& p, AST_Union* u) const;
    // The OBV_ class of `v` as seen from file scope ("OBV_M::V", "OBV_V").
    std::string obv_name(AST_Value* v) const;
    void write_unmarshal_state(CxxPrinter& p, AST_Value* v, CxxPrinter::Vars vars) const;
    // The static object that registers `factory` (a class name) for the
    // repository id of `full` when the program starts.
    void write_factory_registration(CxxPrinter& p, const std::string& full, const std::string& factory) const;
    void write_type_ids(CxxPrinter& p, const std::string& full, const std::vector<std::string>& ids) const;
    // The OBV_ class's constructor parameters: the state members of its
    // concrete bases, then its own.
    void collect_constructor_members(AST_Value* v, std::vector<AST_StateMember*>& members) const;
    // Writer, reader and (where the kind has one) modifier `name` over
    // the member `storage` of type `t`; `tail` follows each signature.
    void write_accessors(CxxPrinter& p, AST_Type* t, const std::string& name, const std::string& storage,
                         const char* tail) const;
    // The accessors of one state member, with storage `_yv_<name>`.
    void write_obv_accessors(CxxPrinter& p, AST_StateMember* m) const;
    // An expression naming the array that the slice pointer `slice` points
    // to ("*reinterpret_cast<...>(slice)"), for the array's Marshal.
    std::string array_of_slice(AST_StateMember* m, const std::string& slice, bool is_const) const;

    const CxxTypeMapping& m_map;
    NameResolver& m_resolver;
    const CxxMarshalWriter& m_marshal;
};

#endif
