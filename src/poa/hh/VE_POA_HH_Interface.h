// The skeleton header's emitter for interfaces: declares the abstract POA
// skeleton class of a non-local interface (and, with AMI callbacks on, the
// skeleton of its reply handler): standard servant members, one pure
// virtual member per operation and accessor, one static dispatch function
// per operation and accessor.
#ifndef VE_POA_HH_INTERFACE_H
#define VE_POA_HH_INTERFACE_H

#include "VE_Cxx.h"

class AST_Attribute;
class AST_Interface;
class AST_Operation;

// The class and its virtual steps are named as the plug-in's published
// interface has them; the private helpers are ours (docs/fixed-and-ours.md).
class VE_POA_HH_Interface : public virtual VE_Cxx {
public:
    // An operation or attribute involving a native type cannot get a
    // dispatch function.
    class DispatchMethodWithNative : public virtual Visitor::VisitorException {
    public:
        explicit DispatchMethodWithNative(AST_Decl* d) : m_decl(d) {}
        void output_exception(std::ostream& os) override;

    private:
        AST_Decl* m_decl;
    };

    explicit VE_POA_HH_Interface(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    virtual void output_poa(AST_Interface* i);
    virtual void output_poa_inherits(AST_Interface* i);
    virtual void output_narrow(AST_Interface* i);
    virtual void output_methods(AST_Interface* i);
    virtual void output_operation(AST_Operation* op);
    virtual void output_attribute(AST_Attribute* a);
    virtual void output_attr_get(AST_Attribute* a);
    virtual void output_attr_set(AST_Attribute* a);
    virtual void output_dispatch_get(AST_Attribute* a);
    virtual void output_dispatch_set(AST_Attribute* a);
};

#endif
