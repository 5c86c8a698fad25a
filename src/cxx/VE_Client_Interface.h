// The client-side interface emitter's services that skeleton emitters share:
// the inheritance graph of an interface and the narrowing members.
#ifndef VE_CLIENT_INTERFACE_H
#define VE_CLIENT_INTERFACE_H

#include "VE_Cxx.h"

#include <vector>

class AST_Interface;

class VE_Client_Interface : public virtual VE_Cxx {
public:
    explicit VE_Client_Interface(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

    // Appends to `all` the interface itself, then its bases depth-first in
    // declaration order, each interface once (one already in `all` is
    // skipped). For each interface added, `counter` grows by the number of
    // keys it adds to a dispatch table: one per operation, one per readonly
    // attribute, two per writable attribute.
    void find_all_interfaces(AST_Interface* i, std::vector<AST_Interface*>& all, long& counter);

    // Writes the definition of the narrow tag of the class that `name_visitor`
    // names for `i` (for example "char POA_M::I::_narrow_tag = 0;"), without
    // a line end.
    virtual void outputNarrowTag(AST_Interface* i, Visitor_i* name_visitor);
    // Writes the definition of that class's _local_narrow: it answers its own
    // subobject for its tag and otherwise asks each base class's
    // _local_narrow by qualified call, in declaration order; `base_class` is
    // the class asked last when no direct base is left (null: the servant
    // base). Ends with its closing line.
    virtual void output_local_narrow(AST_Interface* i, Visitor_i* name_visitor, const char* base_class);
    // Writes the expression naming the tag (for example "POA_M::I::_narrow_tag").
    virtual void outputNarrowTagVar(AST_Interface* i, Visitor_i* name_visitor);
    // Writes the destructor definition of the class.
    virtual void output_dtor(AST_Interface* i);
};

#endif
