#include "VE_HH_MainStartPoint_ValueFwd.h"

long VE_HH_MainStartPoint_ValueFwd::visit(AST_Decl*)
{
    // The client header's forward declarations of value types are written
    // by the client header generator.
    return 1;
}
