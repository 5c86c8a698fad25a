// The implementation file's module emitter. Every definition in the file
// names its class by its full POA name, so a module writes no text: its
// contents are walked by a visitor of their own, at the same indentation,
// whose current scope is the module.
#ifndef VE_POA_IMPL_MODULE_H
#define VE_POA_IMPL_MODULE_H

#include "VE_Cxx.h"

class UTL_Scope;

class VE_POA_Impl_Module : public virtual VE_Cxx {
public:
    explicit VE_POA_Impl_Module(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
    virtual void iterateScope(UTL_Scope* s);
};

#endif
