// The generated headers of Interop.idl and of the naming service for
// programs built with omniORB.
#ifndef INTEROP_ORB_H
#define INTEROP_ORB_H

#include "Interop.hh"

#include <omniORB4/Naming.hh>

#define INTEROP_ORB_NAME "omniORB"

#endif
