#include "CxxTestTree.h"

namespace {

const char* const predefined_names[] = {"long",   "unsigned long", "long long", "unsigned long long", "short",
                                        "unsigned short", "float", "double", "long double", "char", "wchar",
                                        "boolean", "octet", "any", "void", "TypeCode", "Principal"};

} // namespace

AST_PredefinedType* CxxTestTree::pre(AST_PredefinedType::PredefinedType pt)
{
    auto& slot = m_predefined[pt];
    if (!slot)
        slot = add<AST_PredefinedType>(m_root.get(), pt, Identifier(predefined_names[pt]));
    return slot;
}

AST_Interface* CxxTestTree::interface(UTL_Scope* s, const char* name, std::vector<AST_Interface*> bases)
{
    AST_Interface* i = add<AST_Interface>(s, Identifier(name), false, false);
    i->set_inherits(std::move(bases));
    i->set_defined(true);
    return i;
}

AST_Structure* CxxTestTree::structure(UTL_Scope* s, const char* name,
                                      std::vector<std::pair<AST_Type*, const char*>> fields)
{
    AST_Structure* st = add<AST_Structure>(s, Identifier(name));
    for (const auto& f : fields)
        add<AST_Field>(st, f.first, Identifier(f.second));
    st->set_defined(true);
    return st;
}

AST_Operation* CxxTestTree::operation(AST_Interface* i, AST_Type* result, const char* name,
                                      std::vector<std::pair<AST_Argument::Direction, std::pair<AST_Type*, const char*>>> args)
{
    AST_Operation* op = add<AST_Operation>(i, result, AST_Operation::OP_noflags, Identifier(name));
    for (const auto& a : args)
        add<AST_Argument>(op, a.first, a.second.first, UTL_IdList(Identifier(a.second.second)));
    return op;
}
