// The compiler's own IDL directory: the standard IDL files (orb.idl and
// what it includes, PortableServer, Messaging, the naming service) that the
// runtime implements. It is searched after every -I directory, so that
// `#include <orb.idl>` needs no option.
//
// It is found relative to the yvidl binary (YV_IDL_RELDIR, from the install
// layout: ../share/yvidl/idl), so an installed tree can be moved as a
// whole. The build tree has a link at the same place that leads to the
// source copy.
#ifndef YV_IDLDIR_H
#define YV_IDLDIR_H

#include <string>

class YV_IdlDir {
public:
    // The directory with symbolic links resolved, or "" when there is none.
    static std::string find();
};

#endif
