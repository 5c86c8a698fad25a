// Stands in front of a client header emitter: a declaration that the
// runtime defines itself (CxxRuntimeNames) gets a comment saying so instead
// of its definition; every other goes on to the emitter.
#ifndef VE_HH_RUNTIMEDEFINED_H
#define VE_HH_RUNTIMEDEFINED_H

#include "VE_Cxx.h"

#include <memory>

class VE_HH_RuntimeDefined : public virtual VE_Cxx {
public:
    // Takes `emitter` over.
    VE_HH_RuntimeDefined(VIS_Cxx* v, VE_Cxx* emitter) : VE_Cxx(v), m_emitter(emitter) {}
    long visit(AST_Decl* d) override;

private:
    std::unique_ptr<VE_Cxx> m_emitter;
};

#endif
