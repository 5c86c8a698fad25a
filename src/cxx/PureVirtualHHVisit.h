// Makes a member declaration pure virtual: "virtual " before it, " = 0;" after.
#ifndef PUREVIRTUALHHVISIT_H
#define PUREVIRTUALHHVISIT_H

#include "HHExtraVisit.h"

class PureVirtualHHVisit : public HHExtraVisit {
public:
    // The one shared instance; never deleted by its users.
    static PureVirtualHHVisit* instance();
    void before(std::ostream& os) override;
    void after(std::ostream& os) override;
};

#endif
