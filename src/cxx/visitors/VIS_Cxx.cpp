#include "VIS_Cxx.h"

#include "CPPResolver.h"
#include "CodeGenerator.h"

NameResolver& VIS_Cxx::resolver() const
{
    if (CodeGenerator* gen = generator())
        if (NameResolver* r = gen->name_resolver())
            return *r;
    // A visitor used outside a run (a tool or a test without a generator)
    // still names things the C++ way.
    static CPPResolver fallback(nullptr);
    return fallback;
}
