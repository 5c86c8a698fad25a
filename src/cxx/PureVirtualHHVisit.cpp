#include "PureVirtualHHVisit.h"

#include <ostream>

PureVirtualHHVisit* PureVirtualHHVisit::instance()
{
    static PureVirtualHHVisit the_instance;
    return &the_instance;
}

void PureVirtualHHVisit::before(std::ostream& os) { os << "virtual "; }

void PureVirtualHHVisit::after(std::ostream& os) { os << " = 0;"; }
