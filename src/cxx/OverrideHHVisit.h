// Makes a member declaration one that overrides a base class's virtual
// member: nothing before it, " override;" after it.
#ifndef OVERRIDEHHVISIT_H
#define OVERRIDEHHVISIT_H

#include "HHExtraVisit.h"

class OverrideHHVisit : public HHExtraVisit {
public:
    // The one shared instance; never deleted by its users.
    static OverrideHHVisit* instance();
    void before(std::ostream& os) override;
    void after(std::ostream& os) override;
};

#endif
