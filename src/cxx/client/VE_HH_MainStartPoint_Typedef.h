// The client header's typedef emitter: the C++ typedef of the type, its
// companion types under the new name (T_var, T_out, T_ptr, T_slice,
// T_forany, T_alloc ... as the type's kind has them) and its type code:
//
//   typedef YV_Cxx::UnboundedSequence<CORBA::Long> LongSeq;
//   typedef YV_Cxx::Seq_var<LongSeq> LongSeq_var;
//   typedef YV_Cxx::Seq_out<LongSeq> LongSeq_out;
//   extern const CORBA::TypeCode_ptr _tc_LongSeq;
#ifndef VE_HH_MAINSTARTPOINT_TYPEDEF_H
#define VE_HH_MAINSTARTPOINT_TYPEDEF_H

#include "VE_Cxx.h"

class VE_HH_MainStartPoint_Typedef : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Typedef(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
