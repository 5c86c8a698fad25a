#include "VE_HH_MainStartPoint_Constant.h"

#include "AST_Constant.h"
#include "CxxClientText.h"
#include "CxxLiteral.h"

long VE_HH_MainStartPoint_Constant::visit(AST_Decl* d)
{
    AST_Constant* c = AST_Constant::narrow_from_decl(d);
    if (!c)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    AST_Type* t = c->constant_type();
    const bool in_class = text.in_class(c->defined_in());
    // A string constant is a constant pointer; inside a class every
    // literal type is constexpr, a fixed value (no literal type) inline.
    std::string type;
    switch (CxxTypeMapping::kind_of(t)) {
    case CxxTypeMapping::K_string: type = in_class ? "const char*" : "const char* const"; break;
    case CxxTypeMapping::K_wstring: type = in_class ? "const CORBA::WChar*" : "const CORBA::WChar* const"; break;
    case CxxTypeMapping::K_fixed: type = "const CORBA::Fixed"; break;
    default: type = (in_class ? "" : "const ") + text.mapping().name(t); break;
    }
    std::string storage;
    if (in_class)
        storage = CxxTypeMapping::kind_of(t) == CxxTypeMapping::K_fixed ? "static inline " : "static constexpr ";
    text.printer().print("$storage$$type$ $name$ = $value$;\n\n",
                         {{"storage", storage},
                          {"type", type},
                          {"name", text.local(c)},
                          {"value", CxxLiteral::of(c->constant_value(), text.mapping())}});
    return 1;
}
