// The client header's typedef emitter: the C++ typedef of the type, its
// companion types under the new name (T_var, T_out, T_ptr, T_slice,
// T_forany, T_alloc ... as the type's kind has them) and its type code:
//
//   typedef Kinds::Color Hue;
//   typedef Hue& Hue_out;
//   extern const CORBA::TypeCode_ptr _tc_Hue;
//
// A typedef of an anonymous sequence is a class of its own, derived from
// the runtime's sequence template with its constructors, so that two
// typedefs of one sequence type are distinct C++ types (each with its own
// any operators):
//
//   class LongSeq : public YV_Cxx::UnboundedSequence<CORBA::Long>
//   {
//     public:
//       using YV_Cxx::UnboundedSequence<CORBA::Long>::UnboundedSequence;
//   };
//
// A typedef of such a typedef names the same class.
#ifndef VE_HH_MAINSTARTPOINT_TYPEDEF_H
#define VE_HH_MAINSTARTPOINT_TYPEDEF_H

#include "VE_Cxx.h"

class VE_HH_MainStartPoint_Typedef : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Typedef(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
