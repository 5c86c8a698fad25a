// The typed marshaling of the client mapping: the YV_Cxx::Marshal
// specialisations of structures, unions, enumerations and sequence
// typedefs, and the CDR members of exceptions.
//
// The header declares, at global scope after its declarations,
//
//   template <>
//   struct YV_Cxx::Marshal<M::S>
//   {
//       static constexpr std::size_t min_size = 12;
//       static void write(YV_CDR::OutputStream& _yvp_out, const M::S& _yvp_v);
//       static void read(YV_CDR::InputStream& _yvp_in, M::S& _yvp_v);
//   };
//
// and the source defines write and read member by member: primitives
// through the stream's own calls, bounded strings through the runtime's
// helpers that check their bound, every other member through the Marshal
// of its C++ member type. A sequence typedef (a class of its own,
// derived from the runtime's sequence template) takes the Marshal of its
// base. Exceptions write their repository id and members (_yv_write) and
// read their members (_yv_read_members).
#ifndef CXXMARSHALWRITER_H
#define CXXMARSHALWRITER_H

#include <cstddef>
#include <string>
#include <unordered_map>

class AST_Enum;
class AST_Exception;
class AST_Interface;
class AST_Structure;
class AST_Type;
class AST_Typedef;
class AST_Union;
class CxxPrinter;
class CxxTypeMapping;
class NameResolver;

class CxxMarshalWriter {
public:
    CxxMarshalWriter(const CxxTypeMapping& map, NameResolver& resolver) : m_map(map), m_resolver(resolver) {}

    // A lower bound of the octets one value of `t` takes in CDR (alignment
    // padding left out), so that a decoder can refuse sequence counts that
    // the data left cannot hold.
    std::size_t min_size(AST_Type* t) const;

    // The header's specialisation of structure, union or enumeration `t`,
    // or of sequence typedef `t` (derived from the Marshal of its base).
    // `macro` is the export macro and a blank, or "".
    void write_declaration(CxxPrinter& p, AST_Type* t, const std::string& macro) const;
    // The whole Marshal of an abstract interface (inline): a boolean, then
    // an object reference or a value.
    void write_abstract_interface(CxxPrinter& p, AST_Interface* i) const;

    // The source's bodies of write and read.
    void write_structure(CxxPrinter& p, AST_Structure* s) const;
    void write_union(CxxPrinter& p, AST_Union* u) const;
    void write_enum(CxxPrinter& p, AST_Enum* e) const;
    // The bodies of the exception's _yv_write and _yv_read_members.
    void write_exception(CxxPrinter& p, AST_Exception* e) const;

    // The statement (with ";") that writes `value`, an lvalue of the member
    // type of `t`, to stream `out`; the one that reads it from `in`. A
    // reference to an interface that is only forward declared in the file
    // cannot be marshaled there (its class is incomplete): the statements
    // raise MARSHAL.
    std::string write_statement(AST_Type* t, const std::string& out, const std::string& value) const;
    std::string read_statement(AST_Type* t, const std::string& in, const std::string& value) const;

    // The stream's name of primitive type `t` ("long" for write_long and
    // read_long), or null when `t` is no primitive.
    static const char* primitive_name(AST_Type* t);

    // True when a sequence typedef is a class of its own: the typedef
    // names an anonymous sequence (a typedef of a typedef names the same
    // class).
    static bool is_sequence_class(AST_Typedef* td);

private:
    // The C++ type that Marshal is specialised for to carry a member of
    // type `t` ("CORBA::Long[2][3]" for an anonymous array).
    std::string marshal_type(AST_Type* t) const;

    const CxxTypeMapping& m_map;
    NameResolver& m_resolver;
    // Least sizes worked out so far, by resolved type.
    mutable std::unordered_map<const AST_Type*, std::size_t> m_min_sizes;
};

#endif
