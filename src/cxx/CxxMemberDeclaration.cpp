#include "CxxMemberDeclaration.h"

#include "HHExtraVisit.h"
#include "UTL_Indent.h"

#include <ostream>

void CxxMemberDeclaration::write(std::ostream& os, UTL_Indent& indent, HHExtraVisit* first, HHExtraVisit* second) const
{
    os << indent;
    if (first)
        first->before(os);
    if (second)
        second->before(os);
    // A constructor has no result line.
    if (!m_result.empty())
        os << m_result << "\n" << indent;
    if (m_name_writer)
        m_name_writer(os);
    else
        os << m_name;
    os << "(";
    if (!m_params.empty()) {
        os << "\n";
        indent.increment();
        for (std::size_t i = 0; i < m_params.size(); ++i)
            os << indent << m_params[i].first << " " << m_params[i].second << (i + 1 < m_params.size() ? ",\n" : "\n");
        indent.decrement();
        os << indent;
    }
    os << ")" << m_qualifier;
    if (first)
        first->after(os);
    if (second)
        second->after(os);
}
