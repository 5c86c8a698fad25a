// The generated headers of Interop.idl and of the naming service for
// programs built with yvidl and its runtime.
#ifndef INTEROP_ORB_H
#define INTEROP_ORB_H

#include "CosNaming.hh"
#include "InteropS.hh"

#define INTEROP_ORB_NAME "yvidl"

#endif
