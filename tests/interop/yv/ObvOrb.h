// The generated headers of InteropObv.idl for programs built with yvidl
// and its runtime.
#ifndef INTEROP_OBV_ORB_H
#define INTEROP_OBV_ORB_H

#include "InteropObvS.hh"

#define INTEROP_ORB_NAME "yvidl"

#endif
