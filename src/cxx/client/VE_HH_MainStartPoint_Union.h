// The client header's union emitter: a class holding the discriminator and
// one member per branch, with the standard accessors:
//
//   class U
//   {
//     public:
//       U() : _yv_disc(<first label>) {}
//       void _d(<D> _yvp_d) { _yv_disc = _yvp_d; }
//       <D> _d() const { return _yv_disc; }
//       void a(<in type> _yvp_value) { _yv_disc = <a's first label>; _yv_a = _yvp_value; }
//       <reader> a() const { return _yv_a; }
//       <T>& a() { return _yv_a; }           (structures, sequences, anys ...)
//       void _default() { _yv_disc = <a value no label names>; }
//     private:
//       friend struct YV_Cxx::Marshal<U>;
//       <D> _yv_disc;
//       <member type> _yv_a{};
//   };
//
// A branch's setter selects the branch by its first label (the default
// branch by a value that no label names). _default() exists when there is
// no default branch and the labels leave a value unnamed.
#ifndef VE_HH_MAINSTARTPOINT_UNION_H
#define VE_HH_MAINSTARTPOINT_UNION_H

#include "VE_Cxx.h"

#include <string>

class AST_Union;
class CxxPrinter;
class CxxTypeMapping;
class AST_UnionBranch;

class VE_HH_MainStartPoint_Union : public virtual VE_Cxx {
public:
    explicit VE_HH_MainStartPoint_Union(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

    // A literal of a discriminator value that no label of `u` names, or ""
    // when the labels name every value of the discriminator type.
    static std::string unused_discriminator(AST_Union* u, const CxxTypeMapping& map);

protected:
    // The constructor and the discriminator's accessors.
    virtual void output_discriminator(CxxPrinter& p, AST_Union* u);
    // The accessors of one branch.
    virtual void output_branch(CxxPrinter& p, AST_Union* u, AST_UnionBranch* b);
    // The private members, and the friendship of the union's Marshal,
    // which reads and writes them.
    virtual void output_storage(CxxPrinter& p, AST_Union* u);
    // The literal that selects branch `b`.
    std::string selector(AST_Union* u, AST_UnionBranch* b);
};

#endif
