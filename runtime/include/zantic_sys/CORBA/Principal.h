// The obsolete principal pseudo object: only its name exists, so that the
// mapping of the predefined type Principal has a type to name.
#ifndef YV_RT_CORBA_PRINCIPAL_H
#define YV_RT_CORBA_PRINCIPAL_H

#include "Types.h"

namespace CORBA {

class Principal {
public:
    static Principal_ptr _duplicate(Principal_ptr p) { return p; }
    static Principal_ptr _nil() { return nullptr; }
    void _yv_release() {}
};

inline Boolean is_nil(Principal_ptr p) { return p == nullptr; }
inline void release(Principal_ptr) {}

} // namespace CORBA

#endif
