// The factory of VIS_POA_TIE_HH visitors, registered under "VIS_POA_TIE_HH".
#ifndef VIS_POA_TIE_HH_FACTORY_H
#define VIS_POA_TIE_HH_FACTORY_H

#include "VisitorFactoryT.h"

#include <iosfwd>

class CodeGenerator;
class UTL_Scope;
class VIS_POA_TIE_HH;

class VIS_POA_TIE_HH_Factory : public VisitorFactoryT<VIS_POA_TIE_HH_Factory> {
public:
    static const char* const FFKey;
    static char narrow_tag;

    // A new visitor on the stream, at the indentation level, for the scope;
    // the caller owns it and deletes it after the walk.
    virtual VIS_POA_TIE_HH* create_VIS_POA_TIE_HH(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
};

#endif
