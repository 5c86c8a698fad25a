// The skeleton header's emitter for modules: opens the module's POA scope
// (a namespace, or a class where namespaces are not supported), has a
// visitor one level deeper write the contents, and closes the scope.
#ifndef VE_POA_HH_MODULE_H
#define VE_POA_HH_MODULE_H

#include "VE_Cxx.h"

class AST_Module;
class UTL_Scope;

class VE_POA_HH_Module : public virtual VE_Cxx {
public:
    // A reopened module cannot be written as a class a second time.
    class NamespacesUnsupported : public virtual Visitor::VisitorException {
    public:
        explicit NamespacesUnsupported(AST_Module* m) : m_module(m) {}
        void output_exception(std::ostream& os) override;

    private:
        AST_Module* m_module;
    };

    explicit VE_POA_HH_Module(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

protected:
    virtual void iterateScope(UTL_Scope* s);
};

#endif
