#include "POA_VisitorFactories.h"

#include "VIS_POA_HH.h"
#include "VIS_POA_Impl.h"
#include "VIS_POA_TIE_HH.h"

YV_FACTORY_DEFINITION(VIS_POA_HH, (YV_FACTORY_PARAMS), (os, level, scope, gen))
YV_FACTORY_DEFINITION(VIS_POA_TIE_HH, (YV_FACTORY_PARAMS), (os, level, scope, gen))
YV_FACTORY_DEFINITION(VIS_POA_Impl, (YV_FACTORY_PARAMS), (os, level, scope, gen))
