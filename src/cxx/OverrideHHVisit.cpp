#include "OverrideHHVisit.h"

#include <ostream>

OverrideHHVisit* OverrideHHVisit::instance()
{
    static OverrideHHVisit the_instance;
    return &the_instance;
}

void OverrideHHVisit::before(std::ostream&) {}

void OverrideHHVisit::after(std::ostream& os) { os << " override;"; }
