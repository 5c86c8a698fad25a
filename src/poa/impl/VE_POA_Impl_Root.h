// The implementation file's root emitter: hands the main file's modules,
// interfaces, value types and back-end blocks to the visitor. It writes
// nothing itself.
#ifndef VE_POA_IMPL_ROOT_H
#define VE_POA_IMPL_ROOT_H

#include "UTL_FilterList.h"
#include "VE_Cxx.h"

class UTL_Scope;

class VE_POA_Impl_Root : public virtual VE_Cxx {
public:
    explicit VE_POA_Impl_Root(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
    virtual void iterateScope(UTL_Scope* s);

    // The node kinds the implementation file's scope walks visit: modules,
    // interfaces, value types and back-end blocks.
    static UTL_FilterList scope_filter();
};

#endif
