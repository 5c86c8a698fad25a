// A Tally served as an object: the skeleton of a value type that supports
// an interface, with the value's own state (and the value reference count
// a value type with operations leaves to its implementation).
#ifndef INTEROP_TALLY_SERVANT_H
#define INTEROP_TALLY_SERVANT_H

#include "ObvOrb.h"

namespace obv {

class TallyServant : public virtual POA_Obv::Tally,
                     public virtual OBV_Obv::Tally,
                     public virtual CORBA::DefaultValueRefCountBase {
public:
    explicit TallyServant(CORBA::Long start);
    ~TallyServant() override;
    CORBA::Long next() override;
};

} // namespace obv

#endif
