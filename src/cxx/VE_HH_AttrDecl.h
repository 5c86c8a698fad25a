// Writes an attribute's reader and writer declarations, in the layout of
// VE_HH_OpDecl: the reader takes no parameter; the writer returns void and
// takes one in parameter named by `param_format` applied to the attribute's
// local name. The reader never ends its own last line. The writer ends it
// when an extra visit is given (a complete declaration such as a pure
// virtual one, after which the caller writes the next member); without
// extra visits it stops at ")" so that a body can follow on the next line.
#ifndef VE_HH_ATTRDECL_H
#define VE_HH_ATTRDECL_H

#include "VE_HH_OpDecl.h"

class AST_Attribute;

class VE_HH_AttrDecl : public virtual VE_Cxx {
public:
    VE_HH_AttrDecl(VIS_Cxx* v, HHExtraVisit* first, HHExtraVisit* second, Visitor_i* output_visitor, long l1, long l2,
                   const char* param_format);
    long visit(AST_Decl* d) override;
    virtual void output_get(AST_Attribute* a);
    virtual void output_set(AST_Attribute* a);

protected:
    HHExtraVisit* m_first;
    HHExtraVisit* m_second;
    Visitor_i* m_output_visitor;
    long m_l1;
    long m_l2;
    std::string m_param_format;
};

#endif
