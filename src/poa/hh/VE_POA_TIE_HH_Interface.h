// The TIE pass's emitter for interfaces: writes the class template
// POA_<scoped name>_tie<_YV_Cxx_T_>, which derives from the interface's
// skeleton, the TIE classes of its direct bases and YV_POA_TieBase, and
// forwards every operation and accessor to the tied object.
#ifndef VE_POA_TIE_HH_INTERFACE_H
#define VE_POA_TIE_HH_INTERFACE_H

#include "VE_Cxx.h"

#include <string>
#include <string_view>

class AST_Attribute;
class AST_Interface;
class AST_Operation;

// The class and its virtual steps are named as the plug-in's published
// interface has them; the private helpers are ours (docs/fixed-and-ours.md).
class VE_POA_TIE_HH_Interface : public virtual VE_Cxx {
public:
    explicit VE_POA_TIE_HH_Interface(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    virtual void output_tie_name(AST_Interface* i);
    virtual void output_tie(AST_Interface* i);
    virtual void output_ctors(AST_Interface* i);
    virtual void output_private(AST_Interface* i);
    virtual void output_methods(AST_Interface* i);
    virtual void output_operation(AST_Operation* op);
    virtual void output_attribute(AST_Attribute* a);
    virtual void output_attr_set(AST_Attribute* a);
    virtual void output_attr_get(AST_Attribute* a);

private:
    // POA_<scoped name joined by "_">_tie, the name output_tie_name writes.
    std::string tie_name(AST_Interface* i);
    // The end of the declaration's line, "{" / one level deeper: `call` /
    // "}", then `tail`.
    void output_forwarding_body(std::string_view call, CxxPrinter::Vars vars, std::string_view tail);
};

#endif
