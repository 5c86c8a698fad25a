// The client header's root emitter: hands each file-level declaration of
// the main IDL file to the visitor, then writes, at global scope, what
// the runtime's templates need of the types declared: the Marshal
// specialisations and the any operators (in declaration order, grouped by
// type):
//
//   template <>
//   struct YV_Cxx::Marshal<M::S>
//   {
//       ...
//   };
//   void operator<<=(CORBA::Any& _yvp_any, const M::S& _yvp_v);
//   ...
#ifndef VE_HH_MAINSTARTPOINT_ROOT_H
#define VE_HH_MAINSTARTPOINT_ROOT_H

#include "VE_Cxx.h"

#include <vector>

class AST_Root;

class VE_HH_MainStartPoint_Root : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Root(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

    // The named types of the main IDL file that the global section serves,
    // in declaration order (nested ones after the type they are nested in);
    // names the runtime defines are left out.
    static std::vector<AST_Decl*> global_types(UTL_Scope* s, NameResolver& resolver);

protected:
    virtual void output_global(AST_Root* root);
};

#endif
