// Builds small trees by hand for the back-end tests: every node is owned by
// the tree (through its scopes), as the front end would leave it.
#ifndef CXXTESTTREE_H
#define CXXTESTTREE_H

#include "AST_Argument.h"
#include "AST_Array.h"
#include "AST_Attribute.h"
#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "AST_Field.h"
#include "AST_Fixed.h"
#include "AST_Interface.h"
#include "AST_Module.h"
#include "AST_Native.h"
#include "AST_Object.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_Root.h"
#include "AST_Sequence.h"
#include "AST_String.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"
#include "AST_Value.h"
#include "AST_ValueBase.h"
#include "UTL_IdList.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class CxxTestTree {
public:
    CxxTestTree() : m_root(std::make_unique<AST_Root>()) {}

    AST_Root* root() const { return m_root.get(); }

    // Adds a node made from `args` to scope `s` and answers it.
    template <class T, class... Args>
    T* add(UTL_Scope* s, Args&&... args)
    {
        AST_Decl* d = s->add_decl(std::make_unique<T>(std::forward<Args>(args)...));
        d->set_in_main_file(1);
        return static_cast<T*>(d);
    }
    // Adds an anonymous type to scope `s` as a local type.
    template <class T, class... Args>
    T* anon(UTL_Scope* s, Args&&... args)
    {
        return static_cast<T*>(s->add_local_type(std::make_unique<T>(std::forward<Args>(args)...)));
    }

    AST_PredefinedType* pre(AST_PredefinedType::PredefinedType pt);
    AST_Module* module(UTL_Scope* s, const char* name) { return add<AST_Module>(s, Identifier(name)); }
    AST_Interface* interface(UTL_Scope* s, const char* name, std::vector<AST_Interface*> bases = {});
    AST_Typedef* typedef_(UTL_Scope* s, AST_Type* base, const char* name)
    {
        return add<AST_Typedef>(s, base, Identifier(name));
    }
    AST_Structure* structure(UTL_Scope* s, const char* name, std::vector<std::pair<AST_Type*, const char*>> fields);
    AST_Operation* operation(AST_Interface* i, AST_Type* result, const char* name,
                             std::vector<std::pair<AST_Argument::Direction, std::pair<AST_Type*, const char*>>> args = {});
    AST_Attribute* attribute(AST_Interface* i, bool readonly, AST_Type* type, const char* name)
    {
        return add<AST_Attribute>(i, readonly, type, Identifier(name));
    }

private:
    std::unique_ptr<AST_Root> m_root;
    std::map<AST_PredefinedType::PredefinedType, AST_PredefinedType*> m_predefined;
};

// Argument shorthand for CxxTestTree::operation.
inline std::pair<AST_Argument::Direction, std::pair<AST_Type*, const char*>> arg_in(AST_Type* t, const char* n)
{
    return {AST_Argument::dir_IN, {t, n}};
}
inline std::pair<AST_Argument::Direction, std::pair<AST_Type*, const char*>> arg_inout(AST_Type* t, const char* n)
{
    return {AST_Argument::dir_INOUT, {t, n}};
}
inline std::pair<AST_Argument::Direction, std::pair<AST_Type*, const char*>> arg_out(AST_Type* t, const char* n)
{
    return {AST_Argument::dir_OUT, {t, n}};
}

#endif
