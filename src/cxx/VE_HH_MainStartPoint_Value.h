// The client header's value-type emitter: an abstract class deriving from
// the value bases (or CORBA::ValueBase) with pure virtual members for the
// operations, attributes and state members (private state members'
// accessors protected), the supported interfaces' operations, _downcast
// and the type id; and, when the value type has factories, the abstract
// factory class V_init. Skeleton back ends use output_supported for the
// members a value type takes on from the interface it supports.
#ifndef VE_HH_MAINSTARTPOINT_VALUE_H
#define VE_HH_MAINSTARTPOINT_VALUE_H

#include "DeclPointerHolder.h"
#include "VE_HH_MainStartPoint_ValueFwd.h"
#include "YV_HashMap.h"

class AST_Interface;
class AST_StateMember;
class AST_Value;

class VE_HH_MainStartPoint_Value : public virtual VE_HH_MainStartPoint_ValueFwd {
public:
    explicit VE_HH_MainStartPoint_Value(VIS_Cxx* v) : VE_Cxx(v), VE_HH_MainStartPoint_ValueFwd(v) {}
    long visit(AST_Decl* d) override;

    using DeclMap = YV_HashMap<DeclPointerHolder, DeclPointerHolder, DeclPointerHash, DeclPointerEq>;

    // Writes, at the current level, the declarations of the members that
    // value type `v` takes on from interface `supported` and its bases
    // (each declaration once; `done` records those written), type names as
    // seen from the visitor's current scope.
    void output_supported(AST_Value* v, AST_Interface* supported, DeclMap& done);

    // Whether `v` or one of its value bases supports an abstract interface
    // (whose instance it then is).
    static bool supports_abstract(AST_Value* v);

protected:
    // The value type's class.
    virtual void output_value(AST_Value* v);
    // The value type's own declarations in order, at the current level:
    // operations, attributes and public state members' accessors as pure
    // virtual members, nested types and constants.
    virtual void output_members(AST_Value* v);
    // The accessors of a state member at the current level: writer, reader
    // and, for values handed out by reference, the modifier; all pure
    // virtual.
    virtual void output_state_member(AST_StateMember* m);
    // The factory class V_init, when the value type declares factories.
    virtual void output_init(AST_Value* v);
};

#endif
