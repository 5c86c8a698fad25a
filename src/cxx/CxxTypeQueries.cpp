#include "CxxTypeQueries.h"

#include "AST_Argument.h"
#include "AST_Exception.h"
#include "AST_Array.h"
#include "AST_Attribute.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_String.h"
#include "AST_StructFwd.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"
#include "AST_UnionFwd.h"
#include "CxxTypeMapping.h"
#include "UTL_Scope.h"

#include <set>

namespace {

// False for a structure or union known only from a forward declaration:
// it is not marked defined and holds no members.
bool is_defined_aggregate(AST_Type* t)
{
    UTL_Scope* members = DeclAsScope(t);
    if (!members)
        return false;
    if (AST_Union* u = AST_Union::narrow_from_decl(t))
        return u->is_defined() || !members->decls().empty();
    if (AST_Structure* s = AST_Structure::narrow_from_decl(t))
        return s->is_defined() || !members->decls().empty() || AST_Exception::narrow_from_decl(t) != nullptr;
    return false;
}

bool is_native(AST_Type* t) { return t && CxxTypeMapping::kind_of(t) == CxxTypeMapping::K_native; }

// `open` holds the aggregates being examined further up, so that a
// structure reached again through its own members ends the descent; `cut`
// is set when that happened, since the answer then depends on the path and
// is not kept with the type.
bool fixed_length(AST_Type* t, std::set<AST_Decl*>& open, bool& cut)
{
    AST_Type* r = CxxTypeMapping::resolved(t);
    if (!r)
        return true;
    switch (CxxTypeMapping::kind_of(r)) {
    case CxxTypeMapping::K_void:
    case CxxTypeMapping::K_basic:
    case CxxTypeMapping::K_enum:
    case CxxTypeMapping::K_fixed:
        return true;
    case CxxTypeMapping::K_array:
        return fixed_length(AST_Array::narrow_from_decl(r)->base_type(), open, cut);
    case CxxTypeMapping::K_struct:
    case CxxTypeMapping::K_union:
    case CxxTypeMapping::K_exception: {
        if (r->known_length() != AST_Type::Length::Unknown)
            return r->known_length() == AST_Type::Length::Fixed;
        // A structure or union seen only in a forward declaration counts
        // as variable: its members are unknown.
        if (!is_defined_aggregate(r))
            return false;
        if (!open.insert(r).second) {
            cut = true;
            return false;
        }
        bool fixed = true;
        bool inner_cut = false;
        for (const auto& d : DeclAsScope(r)->decls()) {
            AST_Field* f = AST_Field::narrow_from_decl(d.get());
            if (f && !fixed_length(f->field_type(), open, inner_cut)) {
                fixed = false;
                break;
            }
        }
        open.erase(r);
        if (inner_cut)
            cut = true;
        else
            r->set_known_length(fixed ? AST_Type::Length::Fixed : AST_Type::Length::Variable);
        return fixed;
    }
    default:
        return false;
    }
}

} // namespace

bool op_has_natives(AST_Operation* op)
{
    if (!op)
        return false;
    if (is_native(op->return_type()))
        return true;
    for (const auto& d : op->decls()) {
        AST_Argument* a = AST_Argument::narrow_from_decl(d.get());
        if (a && is_native(a->field_type()))
            return true;
    }
    return false;
}

bool attr_has_natives(AST_Attribute* a) { return a && is_native(a->field_type()); }

bool isFixedLength(AST_Type* t)
{
    std::set<AST_Decl*> open;
    bool cut = false;
    return fixed_length(t, open, cut);
}

bool isRootScope(UTL_Scope* s)
{
    AST_Decl* d = ScopeAsDecl(s);
    return d && d->node_type() == AST_Decl::NT_root;
}

const char* wchar_or_char(AST_Type* string_type)
{
    AST_String* s = AST_String::narrow_from_decl(CxxTypeMapping::resolved(string_type));
    return s && s->is_wide() ? "CORBA::WChar" : "char";
}
