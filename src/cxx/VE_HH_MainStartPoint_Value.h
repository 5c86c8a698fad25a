// The client header's value-type emitter; skeleton back ends use it for the
// members a value type takes on from the interface it supports.
#ifndef VE_HH_MAINSTARTPOINT_VALUE_H
#define VE_HH_MAINSTARTPOINT_VALUE_H

#include "DeclPointerHolder.h"
#include "VE_HH_MainStartPoint_ValueFwd.h"
#include "YV_HashMap.h"

class AST_Interface;
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
};

#endif
