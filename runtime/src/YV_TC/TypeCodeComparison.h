// equal and equivalent of type codes. Recursive type codes are cycles, so a
// pair of type codes met again while it is being compared counts as equal
// (the comparison of the pair in progress decides).
#ifndef YV_RT_YV_TC_TYPECODECOMPARISON_H
#define YV_RT_YV_TC_TYPECODECOMPARISON_H

#include "zantic_sys/CORBA/TypeCode.h"

#include <utility>
#include <vector>

namespace YV_TC {

class TypeCodeComparison {
public:
    // equivalent: aliases looked through at every level, names ignored,
    // repository ids deciding where both type codes have one.
    explicit TypeCodeComparison(bool equivalence) : m_equivalence(equivalence) {}

    bool same(CORBA::TypeCode_ptr a, CORBA::TypeCode_ptr b);

private:
    bool same_parameters(CORBA::TypeCode_ptr a, CORBA::TypeCode_ptr b);
    bool same_names(const char* a, const char* b) const;
    bool same_members(CORBA::TypeCode_ptr a, CORBA::TypeCode_ptr b);

    bool m_equivalence;
    std::vector<std::pair<CORBA::TypeCode_ptr, CORBA::TypeCode_ptr>> m_in_progress;
};

} // namespace YV_TC

#endif
