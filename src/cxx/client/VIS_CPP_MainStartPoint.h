// The client source file's visitor: it writes the definitions that the
// client header declares but cannot hold (type ids, type codes, _narrow,
// marshaling, any operators, the dynamic proxies' members). Every
// definition names its entity fully scoped, so the file has no namespace
// blocks: the visitor walks modules and the scopes of types without
// writing anything for them.
#ifndef VIS_CPP_MAINSTARTPOINT_H
#define VIS_CPP_MAINSTARTPOINT_H

#include "VIS_Cxx.h"

#include <memory>

class CxxTypeCodeWriter;

class VIS_CPP_MainStartPoint : public virtual VIS_Cxx {
public:
    VIS_CPP_MainStartPoint(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    ~VIS_CPP_MainStartPoint() override;

    const char* name() override { return "VIS_CPP_MainStartPoint"; }

    // Has every declaration of scope `s` from the main IDL file accept this
    // visitor.
    void walk(UTL_Scope* s);

    // The type code writer of the file (one for the whole file, so that
    // each anonymous type's type code is written once).
    CxxTypeCodeWriter& typecodes();

private:
    std::unique_ptr<CxxTypeCodeWriter> m_typecodes;
};

#endif
