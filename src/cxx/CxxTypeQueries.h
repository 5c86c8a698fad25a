// Questions about IDL types that C++ back ends ask.
#ifndef CXXTYPEQUERIES_H
#define CXXTYPEQUERIES_H

class AST_Attribute;
class AST_Decl;
class AST_Operation;
class AST_Type;
class UTL_Scope;

// True when the result or an argument type is, or names through typedefs,
// an IDL native type.
bool op_has_natives(AST_Operation* op);
bool attr_has_natives(AST_Attribute* a);
// True when the type's C++ mapping has a fixed length (no strings,
// sequences, anys, object references, value types ... inside), looking
// through typedefs, structure and union members and array elements.
bool isFixedLength(AST_Type* t);
// True for the root scope (the file scope).
bool isRootScope(UTL_Scope* s);
// "CORBA::WChar" for a wide string type, "char" otherwise.
const char* wchar_or_char(AST_Type* string_type);

#endif
