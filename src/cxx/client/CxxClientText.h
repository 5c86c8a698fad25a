// What the client-side emitters of the header and the source file share:
// names written fully scoped from the root, where a declaration stands
// (a C++ class or a namespace) and the storage words that follow from it,
// and the lines every named type is followed by (its companion types and
// the declaration of its type code).
#ifndef CXXCLIENTTEXT_H
#define CXXCLIENTTEXT_H

#include "CxxPrinter.h"
#include "CxxTypeMapping.h"

#include <iosfwd>
#include <string>

class AST_Decl;
class AST_Type;
class GEN_CPlusPlus;
class NameResolver;
class UTL_Indent;
class UTL_Scope;
class VIS_Cxx;

class CxxClientText {
public:
    explicit CxxClientText(VIS_Cxx* v);

    // Names: the resolver's local name, the fully scoped name ("M::S"),
    // and the type mapping with fully scoped names.
    const std::string& local(AST_Decl* d) const;
    const std::string& full(AST_Decl* d) const;
    const CxxTypeMapping& mapping() const { return m_map; }

    // True when declarations of scope `s` go inside a C++ class: the scope
    // of an interface, value type, structure, union or exception, and of a
    // module when modules are mapped to classes.
    bool in_class(UTL_Scope* s) const;
    // The word before a data declaration of scope `s` that is defined in
    // the source file: "static " inside a class, "extern " otherwise.
    std::string data_storage(UTL_Scope* s) const;
    // The word before a function defined in the header: "static " inside
    // a class, "inline " otherwise.
    std::string function_storage(UTL_Scope* s) const;

    // True the first time the companions of named type `d` are asked for
    // in the run (forward declarations and the definition share them).
    bool first_companions(AST_Decl* d) const;
    // Writes, at the current level, the companion types of named type `t`
    // whose C++ name is `name` in the scope where it stands: _ptr, _var,
    // _out, and for arrays _slice, _forany (a class per array typedef, so
    // that each has its any operators) and the allocation functions.
    // What is written follows the kind of the type (typedefs looked
    // through); a kind without companions writes nothing.
    void write_companions(AST_Type* t, const std::string& name, UTL_Scope* where) const;
    // Writes, at the current level, the declarations of the functions
    // through which the runtime's templates duplicate, release, marshal and
    // narrow references of interface `i` (C++ name `name`) without its
    // complete type; the interface's client source defines them. Nothing
    // for an interface the runtime defines.
    void write_reference_helpers(AST_Decl* i, const std::string& name, UTL_Scope* where) const;
    // Writes a forward declaration at the current level ("class I;" with
    // `keyword` "class"), then, the first time in the run, the companion
    // types of `full`, the declaration announced, and an empty line.
    void write_forward(const char* keyword, AST_Type* full, AST_Decl* fwd) const;
    // The export macro and a blank when export macros are on, else "": it
    // stands between "class " and the name of classes with members defined
    // in the source file.
    std::string class_macro() const;
    // Writes, at the current level, the declaration of the type code of
    // `d`: "extern const CORBA::TypeCode_ptr _tc_<name>;" ("static" inside
    // a class).
    void write_typecode_declaration(AST_Decl* d) const;

    // A writer on the visitor's stream at the visitor's level.
    CxxPrinter printer() const;
    // The C++ generator of the run (null outside a run).
    GEN_CPlusPlus* generator() const { return m_gen; }

private:
    VIS_Cxx* m_visitor;
    NameResolver& m_resolver;
    GEN_CPlusPlus* m_gen;
    CxxTypeMapping m_map;
};

#endif
