// The client header's visitor: one emitter per node kind writes the
// standard C++ mapping of the declarations of the main IDL file. A scope's
// contents (a module, or the types nested in an interface, value type,
// structure, union or exception) are written by a visitor of their own at
// the level of the scope's body.
#ifndef VIS_HH_MAINSTARTPOINT_H
#define VIS_HH_MAINSTARTPOINT_H

#include "VIS_Cxx.h"

class VIS_HH_MainStartPoint : public virtual VIS_Cxx {
public:
    VIS_HH_MainStartPoint(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen);
    ~VIS_HH_MainStartPoint() override;

    const char* name() override { return "VIS_HH_MainStartPoint"; }

    // Writes the declarations of scope `s` that come from the main IDL file
    // with a fresh visitor at `level`; declarations that are neither types
    // nor constants (members, operations) are passed over.
    static void write_scope(std::ostream& os, int level, UTL_Scope* s, CodeGenerator* gen);
    // Has `d` accept a fresh visitor at `level` whose scope is `d`'s scope.
    static void write_one(std::ostream& os, int level, AST_Decl* d, CodeGenerator* gen);
};

#endif
