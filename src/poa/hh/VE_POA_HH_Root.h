// The skeleton header's emitter for the root: hands the main file's
// file-level modules, interfaces, value types and back-end blocks to the
// header visitor.
#ifndef VE_POA_HH_ROOT_H
#define VE_POA_HH_ROOT_H

#include "UTL_FilterList.h"
#include "VE_Cxx.h"

class UTL_Scope;

class VE_POA_HH_Root : public virtual VE_Cxx {
public:
    explicit VE_POA_HH_Root(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

    // The node kinds that carry skeleton text: module, interface, value type
    // and back-end block. Every other kind is passed over.
    static UTL_FilterList skeleton_kinds();

protected:
    virtual void iterateScope(UTL_Scope* s);
};

#endif
