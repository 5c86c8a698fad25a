#include "VE_HH_RuntimeDefined.h"

#include "CxxClientText.h"
#include "CxxRuntimeNames.h"

long VE_HH_RuntimeDefined::visit(AST_Decl* d)
{
    if (!CxxRuntimeNames::provided(d, resolver()))
        return m_emitter->visit(d);
    CxxClientText text(visitor());
    text.printer().print("// $name$: defined by the runtime\n\n", {{"name", text.full(d)}});
    return 1;
}
