// The TIE pass's emitter for modules: writes nothing of its own and walks
// the module's modules, interfaces and back-end blocks with the same
// visitor, so every TIE class stands at the header's outermost level.
#ifndef VE_POA_TIE_HH_MODULE_H
#define VE_POA_TIE_HH_MODULE_H

#include "VE_Cxx.h"

class UTL_Scope;

class VE_POA_TIE_HH_Module : public virtual VE_Cxx {
public:
    explicit VE_POA_TIE_HH_Module(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    virtual void iterateScope(UTL_Scope* s);
};

#endif
