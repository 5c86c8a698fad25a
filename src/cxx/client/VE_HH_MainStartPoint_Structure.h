// The client header's structure emitter:
//
//   struct S
//   {
//       <types defined inside S>
//       <member type> <member>;
//   };
//   <companions: S_var, S_out>
//   extern const CORBA::TypeCode_ptr _tc_S;
#ifndef VE_HH_MAINSTARTPOINT_STRUCTURE_H
#define VE_HH_MAINSTARTPOINT_STRUCTURE_H

#include "VE_Cxx.h"

class AST_Structure;

class VE_HH_MainStartPoint_Structure : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Structure(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    // The types defined inside the structure, at the current level (one
    // deeper than the structure).
    virtual void output_nested(AST_Structure* s);
    // One line per member, at the current level.
    virtual void output_members(AST_Structure* s);
};

#endif
