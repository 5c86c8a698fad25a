#include "TallyServant.h"

namespace obv {

TallyServant::TallyServant(CORBA::Long start) { count(start); }

TallyServant::~TallyServant() = default;

CORBA::Long TallyServant::next()
{
    count(count() + 1);
    return count();
}

} // namespace obv
