// The client header's enumeration emitter:
//
//   enum E
//   {
//       first,
//       second
//   };
//   typedef E& E_out;
//   extern const CORBA::TypeCode_ptr _tc_E;
#ifndef VE_HH_MAINSTARTPOINT_ENUM_H
#define VE_HH_MAINSTARTPOINT_ENUM_H

#include "VE_Cxx.h"

class VE_HH_MainStartPoint_Enum : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Enum(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
