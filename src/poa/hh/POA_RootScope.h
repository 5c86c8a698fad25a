// Sets a visitor's current scope to the root scope for as long as it
// lives, and puts the old scope back at its end: declaration writers then
// name every type fully scoped.
#ifndef POA_ROOTSCOPE_H
#define POA_ROOTSCOPE_H

#include "CodeGenerator.h"
#include "IDL_GlobalData.h"
#include "VIS_Cxx.h"

class POA_RootScope {
public:
    explicit POA_RootScope(VIS_Cxx* v) : m_visitor(v), m_saved(v->scope())
    {
        v->set_scope(v->generator()->global_data()->root());
    }
    ~POA_RootScope() { m_visitor->set_scope(m_saved); }
    POA_RootScope(const POA_RootScope&) = delete;
    POA_RootScope& operator=(const POA_RootScope&) = delete;

private:
    VIS_Cxx* m_visitor;
    UTL_Scope* m_saved;
};

#endif
