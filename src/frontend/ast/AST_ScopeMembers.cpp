// The member lists of structures, unions and enums: their declarations of
// one kind, in order.
#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "AST_Field.h"
#include "AST_Structure.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"

namespace {

template <class T>
std::vector<T*> members_of(const UTL_Scope& s)
{
    std::vector<T*> out;
    for (const auto& d : s.decls())
        if (T* m = dynamic_cast<T*>(d.get()))
            out.push_back(m);
    return out;
}

} // namespace

std::vector<AST_Field*> AST_Structure::fields() const { return members_of<AST_Field>(*this); }

std::vector<AST_UnionBranch*> AST_Union::branches() const { return members_of<AST_UnionBranch>(*this); }

std::vector<AST_EnumVal*> AST_Enum::enumerators() const { return members_of<AST_EnumVal>(*this); }
