// The visitor factories of the POA plug-in, made as the base library's
// (CxxVisitorFactories.h): VIS_POA_HH_Factory, VIS_POA_TIE_HH_Factory and
// VIS_POA_Impl_Factory, registered under "VIS_POA_HH", "VIS_POA_TIE_HH"
// and "VIS_POA_Impl". create_V makes a visitor on the stream, at the
// indentation level, for the scope; the caller owns it and deletes it
// after the walk.
#ifndef POA_VISITORFACTORIES_H
#define POA_VISITORFACTORIES_H

#include "CxxVisitorFactories.h"

YV_FACTORY(VIS_POA_HH, (YV_FACTORY_PARAMS));
YV_FACTORY(VIS_POA_TIE_HH, (YV_FACTORY_PARAMS));
YV_FACTORY(VIS_POA_Impl, (YV_FACTORY_PARAMS));

#endif
