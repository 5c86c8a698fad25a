// The insertion and extraction operators of the standard mapping for the
// user-defined types of the client header: declared at global scope after
// the header's declarations, each defined in the client source as one call
// of the runtime's templates (zantic_sys/YV_Cxx/AnyInsert.h):
//
//   void operator<<=(CORBA::Any& _yvp_any, const M::S& _yvp_v) { YV_Cxx::any_insert_copy<...>(...); }
//
// Structures, unions and sequence typedefs: copying insertion from
// `const T&`, adopting insertion of `T*`, extraction to `const T*&` (and to
// `T*&`, which old programs use); exceptions the same without `T*&`;
// enumerations by value; interfaces from I_ptr (duplicated) and I_ptr*
// (adopted) and to I_ptr&; arrays through their A_forany. Typedefs of
// other types name the same C++ type as what they alias and get none;
// fixed-point typedefs go through CORBA::Any::from_fixed. A type holding a
// reference to an interface that the file only forward declares cannot be
// copied there (the interface's class is incomplete) and gets none either.
#ifndef CXXANYOPERATORWRITER_H
#define CXXANYOPERATORWRITER_H

#include <string>

class AST_Decl;
class CxxPrinter;
class CxxTypeMapping;
class NameResolver;

class CxxAnyOperatorWriter {
public:
    CxxAnyOperatorWriter(const CxxTypeMapping& map, NameResolver& resolver) : m_map(map), m_resolver(resolver) {}

    // True when named type `d` has operators of its own.
    static bool has_operators(AST_Decl* d);
    // The declarations (header); `macro` is the export macro and a blank,
    // or "".
    void write_declarations(CxxPrinter& p, AST_Decl* d, const std::string& macro) const;
    // The definitions (source).
    void write_definitions(CxxPrinter& p, AST_Decl* d) const;
    // The streamable class that carries `d` and its base are instantiated
    // once, in the client source (`definitions`): the header declares them
    // `extern template`, so that no other file that includes it (the
    // skeleton's, a program's) compiles them again. Written for the types
    // with operators (whose streamables are complete there) other than value
    // types and arrays.
    void write_instantiations(CxxPrinter& p, AST_Decl* d, bool definitions) const;

private:
    void write(CxxPrinter& p, AST_Decl* d, const std::string& macro, bool definitions) const;

    const CxxTypeMapping& m_map;
    NameResolver& m_resolver;
};

#endif
