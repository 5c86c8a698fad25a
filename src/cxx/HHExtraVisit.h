// A hook that changes how a member declaration is written: it may write
// something before the declaration (such as "virtual ") and after it (such
// as " = 0;"). The declaration writers call both around their text.
#ifndef HHEXTRAVISIT_H
#define HHEXTRAVISIT_H

#include <iosfwd>

class HHExtraVisit {
public:
    virtual ~HHExtraVisit() = default;
    virtual void before(std::ostream& os) = 0;
    virtual void after(std::ostream& os) = 0;
};

#endif
