// The implementation file's emitter for back-end blocks: a block addressed
// to this plug-in applies the options of its "@switch" lines to the
// generator at the point of the walk where it stands. It writes no text.
#ifndef VE_POA_IMPL_CBE_SPECIFIC_H
#define VE_POA_IMPL_CBE_SPECIFIC_H

#include "VE_Cxx.h"

class VE_POA_Impl_CBE_Specific : public virtual VE_Cxx {
public:
    explicit VE_POA_Impl_CBE_Specific(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
