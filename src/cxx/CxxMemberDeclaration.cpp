#include "CxxMemberDeclaration.h"

#include "CxxPrinter.h"
#include "HHExtraVisit.h"
#include "UTL_Indent.h"

#include <ostream>

void CxxMemberDeclaration::write(std::ostream& os, UTL_Indent& indent, HHExtraVisit* first, HHExtraVisit* second) const
{
    CxxPrinter p(os, indent);
    p.indentation();
    if (first)
        first->before(os);
    if (second)
        second->before(os);
    // A constructor has no result line.
    if (!m_result.empty()) {
        p.print("$result$\n", {{"result", m_result}});
        p.indentation();
    }
    if (m_name_writer)
        m_name_writer(os);
    p.print("$name$(", {{"name", m_name_writer ? std::string_view() : std::string_view(m_name)}});
    if (!m_params.empty()) {
        p.print("\n");
        {
            auto params = p.deeper();
            p.list(m_params, ",\n", [&p](const Parameter& param) {
                p.print("$type$ $name$", {{"type", param.first}, {"name", param.second}});
            });
            p.print("\n");
        }
    }
    p.print(")$qualifier$", {{"qualifier", m_qualifier}});
    if (first)
        first->after(os);
    if (second)
        second->after(os);
}
