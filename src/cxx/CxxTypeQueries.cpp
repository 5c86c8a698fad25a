#include "CxxTypeQueries.h"

#include "AST_Argument.h"
#include "AST_Attribute.h"
#include "AST_Operation.h"
#include "AST_String.h"
#include "CxxTypeMapping.h"
#include "UTL_Scope.h"

namespace {

bool is_native(AST_Type* t) { return t && CxxTypeMapping::kind_of(t) == CxxTypeMapping::K_native; }

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

bool isFixedLength(AST_Type* t) { return CxxTypeMapping::is_fixed_length(t); }

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
