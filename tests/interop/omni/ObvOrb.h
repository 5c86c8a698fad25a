// The generated header of InteropObv.idl for programs built with omniORB.
#ifndef INTEROP_OBV_ORB_H
#define INTEROP_OBV_ORB_H

#include "InteropObv.hh"

#define INTEROP_ORB_NAME "omniORB"

#endif
