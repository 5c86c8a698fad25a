// The TIE pass's emitter for the root: hands the main file's file-level
// modules and interfaces to the TIE visitor.
#ifndef VE_POA_TIE_HH_ROOT_H
#define VE_POA_TIE_HH_ROOT_H

#include "VE_Cxx.h"

class UTL_Scope;

class VE_POA_TIE_HH_Root : public virtual VE_Cxx {
public:
    explicit VE_POA_TIE_HH_Root(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    virtual void iterateScope(UTL_Scope* s);
};

#endif
