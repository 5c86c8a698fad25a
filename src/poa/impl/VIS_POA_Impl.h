// The skeleton implementation file's visitor: hands each node to the implementation emitter registered for its kind.
#ifndef VIS_POA_IMPL_H
#define VIS_POA_IMPL_H

#include "VIS_Cxx.h"

class VIS_POA_Impl : public virtual VIS_Cxx {
public:
    VIS_POA_Impl(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    ~VIS_POA_Impl() override;
    // "VIS_POA_Impl", the same text as VIS_POA_Impl_Factory::FFKey.
    const char* name() override;
};

#endif
