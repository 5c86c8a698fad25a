// The recursive-descent parser of IDL. It reads the lexer's tokens and
// builds the tree under the root as it goes, resolving every name where it
// is written (IDL_Names), evaluating constant expressions (IDL_ConstEval),
// running the checks that need the whole declaration (IDL_Checks) and
// recording what repository ids need (IDL_RepoIds).
//
// Errors are reported where they are found. After a syntax error the parser
// skips to the end of the declaration and goes on, so several errors can be
// reported; nesting deeper than the nesting limit, inheritance beyond its
// limit and too many errors stop it.
#ifndef IDL_PARSER_H
#define IDL_PARSER_H

#include "AST_Decl.h"
#include "AST_Expression.h"
#include "IDL_ConstEval.h"
#include "IDL_Lexer.h"
#include "IDL_Limits.h"
#include "IDL_Predefined.h"
#include "IDL_ScopedName.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

class AST_Enum;
class AST_Exception;
class AST_Interface;
class AST_Module;
class AST_Root;
class AST_Structure;
class AST_Type;
class AST_Union;
class AST_Value;
class IDL_Names;
class IDL_RepoIds;
class UTL_ExceptList;
class UTL_Scope;

class IDL_Parser {
public:
    // Errors after which parsing stops.
    static constexpr long kMaxErrors = 100;

    // `limits` bound nesting, inheritance and typedef chains.
    IDL_Parser(IDL_Lexer& lexer, AST_Root* root, IDL_Names& names, IDL_RepoIds& ids, const IDL_Limits& limits);

    // Parses every token into the root.
    void parse();
    // Files the main file includes inside a declaration's body (a module's,
    // mostly), as the line markers name them: their declarations are part
    // of the main file's text where the #include stands.
    const std::set<std::string>& scoped_includes() const { return m_scoped_includes; }
    // Files the main file includes at file scope, with the number of the
    // root's declarations (of every file) read before the #include: the
    // client header writes its include line at that point of its own
    // declarations.
    const std::map<std::string, std::size_t>& include_positions() const { return m_include_positions; }

private:
    // A type as written, with the anonymous type nodes the writing made
    // (sequence<...>, string<N>, fixed<d,s>), innermost first. The caller
    // hands them to the scope that owns them.
    struct TypeSpec {
        AST_Type* type = nullptr;
        std::vector<std::unique_ptr<AST_Decl>> anon;
    };
    struct Declarator {
        std::string name;
        IDL_Token token;
        std::vector<unsigned long> dims;
    };
    // What a scope body holds.
    enum class Body { File, Module, Interface, Value };
    struct SyntaxError {};
    struct Abort {};
    class Nesting;
    class ScopeFrame;

    // Tokens.
    const IDL_Token& cur() const { return m_tokens[m_pos]; }
    const IDL_Token& peek(std::size_t k = 1) const;
    bool at(IDL_Tok k) const { return cur().kind == k; }
    bool accept(IDL_Tok k);
    IDL_Token expect(IDL_Tok k, const char* what = nullptr);
    IDL_Token expect_identifier(const char* what = "identifier");
    void advance();
    [[noreturn]] void syntax_error(const std::string& expected);
    std::string describe_current() const;
    IDL_Loc loc(const IDL_Token& t) const { return m_lexer.loc(t); }
    void error(IDL_Diag id, const IDL_Token& at, std::initializer_list<std::string> args = {});
    void check_error_limit();
    // Skips to the end of the declaration that began at token `start`: past
    // its ';', or to the '}' that closes the enclosing scope.
    void recover(std::size_t start);
    void handle_directives(UTL_Scope* s);

    // Reports forward-declared structures and unions left undefined.
    void undefined_forwards(UTL_Scope* s);
    void adopt_included_members(UTL_Scope* s);

    // Building.
    void set_position(AST_Decl* d, const IDL_Token& t) const;
    AST_Decl* place(UTL_Scope* s, std::unique_ptr<AST_Decl> d, const IDL_Token& at);
    void own_anonymous(UTL_Scope* s, TypeSpec& ts);
    // Checks the members an interface or value type inherits for clashes.
    void check_inherited_clashes(UTL_Scope* s, std::size_t direct_bases, const IDL_Token& at);
    // The argument names of one operation or factory so far, folded to
    // lower case, with their spelling.
    using ArgumentNames = std::unordered_map<std::string, std::string>;
    // Reports an argument named like an earlier one of the same operation
    // or factory (ignoring case), and records it.
    void check_argument_name(ArgumentNames& seen, const std::string& name, const IDL_Token& at);
    // Counts what the interface or value type `s` inherits against the
    // inheritance limit; stops the parse beyond it.
    void charge_inheritance(UTL_Scope* s, const IDL_Token& at);
    // The structure or union a value of type `t` holds directly, through
    // typedefs and arrays (typedefs answer from m_held); null when none.
    AST_Decl* held_aggregate(AST_Type* t) const;
    // Records a new typedef's chain depth and held aggregate; reports a
    // chain deeper than the limit.
    void typedef_defined(AST_Decl* td, AST_Type* base, const IDL_Token& at);
    std::size_t depth_of(UTL_Scope* s) const;

    // Declarations.
    void body(UTL_Scope* s, Body kind);
    void definition(UTL_Scope* s, Body kind);
    void module_dcl(UTL_Scope* s);
    void interface_dcl(UTL_Scope* s, bool is_abstract, bool is_local);
    std::vector<AST_Interface*> interface_bases(UTL_Scope* s, const std::string& derived, bool is_abstract,
                                               bool is_local);
    void value_dcl(UTL_Scope* s, bool is_abstract, bool is_custom);
    void value_box(UTL_Scope* s, const IDL_Token& name);
    void state_member(AST_Value* v);
    void factory_dcl(AST_Value* v);
    void const_dcl(UTL_Scope* s);
    void typedef_dcl(UTL_Scope* s);
    void native_dcl(UTL_Scope* s);
    AST_Type* struct_type(UTL_Scope* s, bool allow_forward);
    AST_Type* union_type(UTL_Scope* s, bool allow_forward);
    AST_Type* enum_type(UTL_Scope* s);
    void except_dcl(UTL_Scope* s);
    void members(AST_Structure* st);
    void union_body(AST_Union* u);
    void op_dcl(UTL_Scope* s);
    void attr_dcl(UTL_Scope* s);
    void raises(UTL_Scope* s, UTL_ExceptList* list);
    void type_id_dcl(UTL_Scope* s, bool is_prefix);
    void cbe_block(UTL_Scope* s);
    // Reads "interface|struct|union|valuetype Name" forms with a forward
    // declaration; answers the full node (pending or defined) or null.
    template <class Full, class Fwd>
    Full* forward_dcl(UTL_Scope* s, const IDL_Token& name, std::unique_ptr<Full> fresh);
    template <class Full>
    Full* begin_definition(UTL_Scope* s, const IDL_Token& name, std::unique_ptr<Full> fresh);

    // Types.
    void type_spec(UTL_Scope* s, TypeSpec& out, bool names_type);
    void simple_type_spec(UTL_Scope* s, TypeSpec& out, bool names_type);
    AST_Type* base_type();
    bool at_base_type() const;
    AST_Type* named_type(UTL_Scope* s);
    Declarator declarator(UTL_Scope* s);
    std::vector<Declarator> declarators(UTL_Scope* s);
    // The declarator's type: the type itself, or a new array of it.
    AST_Type* declarator_type(AST_Type* base, const Declarator& d, TypeSpec& anon);
    void check_by_value(AST_Type* t, const IDL_Token& where);
    // Reports a local type used for `what` (a result, an argument, an
    // attribute) by an unconstrained interface `s`.
    void check_local_use(UTL_Scope* s, AST_Type* t, const IDL_Token& where, const std::string& what);

    // Names.
    IDL_ScopedName scoped_name();
    IDL_ScopedName parse_name_text(const std::string& text, const IDL_Loc& loc) const;
    AST_Decl* resolve(UTL_Scope* s, const IDL_ScopedName& n);

    // Constant expressions.
    IDL_ConstValue const_exp(UTL_Scope* s);
    IDL_ConstValue single_operator_expr(UTL_Scope* s, IDL_ConstValue (IDL_Parser::*operand)(UTL_Scope*), IDL_Tok tok,
                                        IDL_ConstEval::BinaryOp op);
    IDL_ConstValue or_expr(UTL_Scope* s);
    IDL_ConstValue xor_expr(UTL_Scope* s);
    IDL_ConstValue and_expr(UTL_Scope* s);
    IDL_ConstValue shift_expr(UTL_Scope* s);
    IDL_ConstValue add_expr(UTL_Scope* s);
    IDL_ConstValue mult_expr(UTL_Scope* s);
    IDL_ConstValue unary_expr(UTL_Scope* s);
    IDL_ConstValue primary_expr(UTL_Scope* s);
    // A bound or array size: a positive integer (0 after an error).
    unsigned long positive_int(UTL_Scope* s, bool zero_allowed = false);
    std::string string_literal();

    IDL_Lexer& m_lexer;
    std::vector<IDL_Token> m_tokens;
    std::size_t m_pos = 0;
    std::size_t m_next_directive = 0;
    // Included files open at the current token (0: the main file).
    std::size_t m_file_depth = 0;
    std::set<std::string> m_scoped_includes;
    std::map<std::string, std::size_t> m_include_positions;
    AST_Root* m_root;
    IDL_Names& m_names;
    IDL_RepoIds& m_ids;
    IDL_Predefined m_predefined;
    const IDL_Limits& m_limits;
    std::size_t m_nesting = 0;
    // Ancestors and inherited declarations counted so far (charge_inheritance).
    std::size_t m_inherited = 0;
    // Per typedef: how many typedefs its chain holds, itself included, and
    // the aggregate it holds by value.
    std::unordered_map<const AST_Decl*, std::size_t> m_typedef_depth;
    std::unordered_map<const AST_Decl*, AST_Decl*> m_held;
    long m_error_base = 0;
    // Inside <...> of a template type: '>' ends the bound, it is no operator.
    bool m_in_template = false;
    // The expression kind a constant expression is evaluated for.
    AST_Expression::ExprType m_target = AST_Expression::EV_none;
    // Structures and unions whose definition is being read, innermost last.
    std::vector<AST_Decl*> m_being_defined;
    // The latest opening of each module, by its first opening.
    std::unordered_map<AST_Module*, AST_Module*> m_last_opening;
    // Per type used by an unconstrained interface: the local interface it
    // involves, or null.
    std::unordered_map<const AST_Type*, AST_Interface*> m_local_types;
};

#endif
