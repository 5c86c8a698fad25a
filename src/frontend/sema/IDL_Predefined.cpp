#include "IDL_Predefined.h"

#include "AST_Object.h"
#include "AST_Root.h"
#include "AST_String.h"
#include "AST_ValueBase.h"
#include "IDL_Names.h"

#include <memory>

IDL_Predefined::IDL_Predefined(AST_Root* root, IDL_Names& names)
{
    static const char* const spelling[] = {"long",  "unsigned long", "long long", "unsigned long long", "short",
                                           "unsigned short", "float", "double", "long double", "char", "wchar",
                                           "boolean", "octet", "any", "void", "TypeCode", "Principal"};
    for (int i = 0; i <= AST_PredefinedType::PT_principal; ++i) {
        auto pt = static_cast<AST_PredefinedType::PredefinedType>(i);
        m_types[i] = static_cast<AST_PredefinedType*>(
            root->add_local_type(std::make_unique<AST_PredefinedType>(pt, Identifier(spelling[i]))));
    }
    m_object = static_cast<AST_Object*>(root->add_local_type(std::make_unique<AST_Object>()));
    m_value_base = static_cast<AST_ValueBase*>(root->add_local_type(std::make_unique<AST_ValueBase>()));
    m_string = static_cast<AST_String*>(root->add_local_type(std::make_unique<AST_String>(false, 0, false)));
    m_wstring = static_cast<AST_String*>(root->add_local_type(std::make_unique<AST_String>(true, 0, false)));

    names.add_builtin("TypeCode", m_types[AST_PredefinedType::PT_typecode], true);
    names.add_builtin("Principal", m_types[AST_PredefinedType::PT_principal], true);
    names.add_builtin("Object", m_object, false);
    names.add_builtin("ValueBase", m_value_base, false);
}
