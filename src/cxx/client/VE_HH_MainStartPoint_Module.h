// The client header's module emitter: a module becomes a namespace (or,
// without namespace support, a class with public members, which cannot be
// reopened) holding its declarations one level deeper.
#ifndef VE_HH_MAINSTARTPOINT_MODULE_H
#define VE_HH_MAINSTARTPOINT_MODULE_H

#include "VE_Cxx.h"
#include "Visitor.h"

class AST_Module;

class VE_HH_MainStartPoint_Module : public virtual VE_Cxx {
public:
    // A module opened a second time while modules are mapped to classes.
    class ReopenedModule : public Visitor::VisitorException {
    public:
        explicit ReopenedModule(AST_Module* m) : m_module(m) {}
        void output_exception(std::ostream& os) override;

    private:
        AST_Module* m_module;
    };

    explicit VE_HH_MainStartPoint_Module(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;
};

#endif
