#include "CxxVisitorFactories.h"

#include "VIS_Client_DeclDispStreamable.h"
#include "VIS_Client_DeclareArgs.h"
#include "VIS_Client_DeclareAsst.h"
#include "VIS_Client_SetTypeCode.h"
#include "VIS_Client_TypeCode.h"
#include "VIS_HH_ABC_OpReturn.h"
#include "VIS_HH_ABC_OperationArg.h"

YV_FACTORY_DEFINITION(VIS_Client_DeclDispStreamable,
                              (YV_FACTORY_PARAMS, const char* strm_name, const char* var_name, const char* addr_expr,
                               const char* orb_name, long usage, AST_Decl* decl),
                              (os, level, scope, gen, strm_name, var_name, addr_expr, orb_name, usage, decl))
YV_FACTORY_DEFINITION(VIS_Client_DeclareArgs, (YV_FACTORY_PARAMS, AST_Argument* arg),
                              (os, level, scope, gen, arg))
YV_FACTORY_DEFINITION(VIS_Client_DeclareAsst, (YV_FACTORY_PARAMS, long usage), (os, level, scope, gen, usage))
YV_FACTORY_DEFINITION(VIS_Client_SetTypeCode, (YV_FACTORY_PARAMS), (os, level, scope, gen))
YV_FACTORY_DEFINITION(VIS_Client_TypeCode, (YV_FACTORY_PARAMS), (os, level, scope, gen))
YV_FACTORY_DEFINITION(VIS_HH_ABC_OpReturn, (YV_FACTORY_PARAMS), (os, level, scope, gen))
YV_FACTORY_DEFINITION(VIS_HH_ABC_OperationArg, (YV_FACTORY_PARAMS), (os, level, scope, gen))

YV_FACTORY_KEY_DEFINITION(VIS_Client_DeclareArgs_Typedef);
YV_FACTORY_KEY_DEFINITION(VIS_Client_DeclareFullAsstForTypedef);
YV_FACTORY_KEY_DEFINITION(VIS_HH_ABC_OpArg_Typedef);
YV_FACTORY_KEY_DEFINITION(VIS_HH_ABC_OpReturn_Typedef);
