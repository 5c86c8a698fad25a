// Writes an operation's member declaration in the standard C++ mapping:
//
//   [first->before]<return type>
//   <name>(
//       <parameter>,
//       <parameter>
//   )[first->after]
//
// return type on its own line, the name and "(" on the next, one parameter
// per line one level deeper, ")" back at the member's level; without an
// extra visit it stops at ")". It never ends its own last line. Type names
// are written as seen from the visitor's current scope; parameter names are
// `param_format` (a printf format with one %s) applied to the resolver's
// local name of the parameter.
#ifndef VE_HH_OPDECL_H
#define VE_HH_OPDECL_H

#include "VE_Cxx.h"

#include <string>

class HHExtraVisit;

class VE_HH_OpDecl : public virtual VE_Cxx {
public:
    // `output_visitor` may be null; the two longs are reserved for the
    // caller's marks and are 1 in every use today.
    VE_HH_OpDecl(VIS_Cxx* v, HHExtraVisit* first, HHExtraVisit* second, Visitor_i* output_visitor, long l1, long l2,
                 const char* param_format);
    long visit(AST_Decl* d) override;

protected:
    HHExtraVisit* m_first;
    HHExtraVisit* m_second;
    Visitor_i* m_output_visitor;
    long m_l1;
    long m_l2;
    std::string m_param_format;
};

#endif
