// The base of every node of the tree.
#ifndef AST_DECL_H
#define AST_DECL_H

#include "Identifier.h"
#include "UTL_String.h"

#include <memory>
#include <string>

class AST_Type;
class UTL_Scope;
class Visitor;

class AST_Decl {
public:
    // Node kinds. The numbers are fixed: back ends compare and print them.
    enum NodeType {
        NT_module = 0,
        NT_root = 1,
        NT_interface = 2,
        NT_interface_fwd = 3,
        NT_const = 4,
        NT_except = 5,
        NT_attr = 6,
        NT_op = 7,
        NT_argument = 8,
        NT_union = 9,
        NT_union_branch = 10,
        NT_struct = 11,
        NT_field = 12,
        NT_enum = 13,
        NT_enum_val = 14,
        NT_string = 15,      // string and wstring, bounded or not
        NT_array = 16,
        NT_sequence = 17,
        NT_typedef = 18,
        NT_pre_defined = 19,
        NT_native = 20,
        NT_object = 21,      // CORBA::Object
        NT_cbe_specific = 22,
        NT_fixed = 23,
        NT_value = 24,
        NT_value_fwd = 25,
        NT_valuebase = 26,   // CORBA::ValueBase
        NT_value_box = 27,
        NT_state_member = 28,
        NT_factory = 29,
        NT_struct_fwd = 30,
        NT_union_fwd = 31
    };

    AST_Decl(NodeType type, Identifier name) : m_node_type(type), m_name(std::move(name)) {}
    virtual ~AST_Decl() = default;
    AST_Decl(const AST_Decl&) = delete;
    AST_Decl& operator=(const AST_Decl&) = delete;

    NodeType node_type() const { return m_node_type; }
    // The scope the declaration stands in; null for the root.
    UTL_Scope* defined_in() const { return m_defined_in; }
    void set_defined_in(UTL_Scope* s)
    {
        m_defined_in = s;
        m_name_cache.owner = 0;
        m_kept.reset();
    }

    // Non-zero when the declaration comes from the main IDL file rather
    // than from a file it includes.
    long in_main_file() const { return m_in_main_file; }
    void set_in_main_file(long v) { m_in_main_file = v; }

    // The IDL name (for anonymous types a descriptive name such as "sequence").
    Identifier* local_name() { return &m_name; }
    const Identifier* local_name() const { return &m_name; }

    // Where the declaration was written: its true file, line and byte
    // column (1-based; 0 when not known, for nodes that back ends make).
    long line() const { return m_line; }
    long column() const { return m_column; }
    UTL_String* file_name() const { return m_file.get(); }
    void set_position(std::shared_ptr<UTL_String> file, long line, long column = 0)
    {
        m_file = std::move(file);
        m_line = line;
        m_column = column;
    }

    // The repository id ("IDL:M/I:1.0"), after #pragma prefix, ID, version,
    // typeid and typeprefix. Empty for nodes that have none.
    const std::string& repoID() const { return m_repo_id; }
    void set_repoID(std::string id) { m_repo_id = std::move(id); }

    // Where a name resolver keeps the node's scoped name once it has worked
    // it out: back ends ask for names millions of times. `owner` is the
    // resolver's number (0: nothing kept); moving the node drops the text.
    // `local` is the resolver's local name of the node (the node's own name
    // or a changed one the resolver holds), kept for resolver `local_owner`.
    struct NameCache {
        unsigned long long owner = 0;
        std::string text;
        unsigned long long local_owner = 0;
        const std::string* local = nullptr;
    };
    NameCache& name_cache() const { return m_name_cache; }

    // What a back end works out from the node and keeps on it (the C++
    // forms of a type, say). `kind` names the class that made it and
    // `owner` is the number of the name resolver it was made with, so
    // that a back end takes only its own; the node owns it, and moving the
    // node drops it.
    class Kept {
    public:
        Kept(const void* kind, unsigned long long owner) : kind(kind), owner(owner) {}
        virtual ~Kept() = default;
        const void* const kind;
        const unsigned long long owner;
    };
    std::unique_ptr<Kept>& kept() const { return m_kept; }

    // Hands the node to the visit operation of its class.
    virtual long accept(Visitor* v) = 0;

    // The scope this node opens, or null (see DeclAsScope).
    virtual UTL_Scope* as_scope() { return nullptr; }
    // This node as a type, or null (see AST_Type::narrow_from_decl).
    virtual AST_Type* as_type() { return nullptr; }

private:
    NodeType m_node_type;
    Identifier m_name;
    UTL_Scope* m_defined_in = nullptr;
    long m_in_main_file = 0;
    long m_line = 0;
    long m_column = 0;
    std::shared_ptr<UTL_String> m_file;
    std::string m_repo_id;
    mutable NameCache m_name_cache;
    mutable std::unique_ptr<Kept> m_kept;
};

#endif
