#include "IDL_Parser.h"

#include "AST_Argument.h"
#include "AST_Array.h"
#include "AST_Attribute.h"
#include "AST_CBE_Specific.h"
#include "AST_Constant.h"
#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "AST_Exception.h"
#include "AST_Factory.h"
#include "AST_Field.h"
#include "AST_Fixed.h"
#include "AST_Interface.h"
#include "AST_InterfaceFwd.h"
#include "AST_Module.h"
#include "AST_Native.h"
#include "AST_Object.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_Root.h"
#include "AST_Sequence.h"
#include "AST_StateMember.h"
#include "AST_String.h"
#include "AST_StructFwd.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"
#include "AST_UnionFwd.h"
#include "AST_Value.h"
#include "AST_ValueBase.h"
#include "AST_ValueBox.h"
#include "AST_ValueFwd.h"
#include "IDL_Checks.h"
#include "IDL_Diagnostics.h"
#include "IDL_Names.h"
#include "IDL_RepoIds.h"
#include "idl_msg_header.h"

#include <algorithm>
#include <cctype>
#include <set>
#include <type_traits>
#include <unordered_set>
#include <utility>

namespace {

const char* const kDefinition = "a definition";
const char* const kExport = "a type, constant, exception, attribute or operation";

using EV = AST_Expression;

// True when `distinct` different labels are every value of discriminator
// type `disc` (booleans, enumerations, characters).
bool labels_cover(AST_Type* disc, std::size_t distinct)
{
    AST_Type* t = disc;
    while (AST_Typedef* td = AST_Typedef::narrow_from_decl(t))
        t = td->base_type();
    if (AST_Enum* e = AST_Enum::narrow_from_decl(t))
        return distinct >= e->enumerators().size();
    if (AST_PredefinedType* p = AST_PredefinedType::narrow_from_decl(t)) {
        switch (p->pt()) {
        case AST_PredefinedType::PT_boolean: return distinct >= 2;
        case AST_PredefinedType::PT_char: return distinct >= 256;
        default: return false;
        }
    }
    return false;
}

// A base named through a typedef is the type the typedef stands for.
AST_Decl* unaliased(AST_Decl* d)
{
    if (AST_Typedef* td = AST_Typedef::narrow_from_decl(d))
        return td->primitive_base_type();
    return d;
}

// Component-model constructs this compiler does not accept, by the word
// that starts them.
const char* unsupported_construct(std::string_view word)
{
    if (word == "component")
        return "components";
    if (word == "home")
        return "component homes";
    if (word == "eventtype")
        return "event types";
    if (word == "import")
        return "imports";
    return nullptr;
}

// A kind of declaration as messages name it.
const char* kind_word(AST_Decl::NodeType k)
{
    switch (k) {
    case AST_Decl::NT_module: return "a module";
    case AST_Decl::NT_interface: return "an interface";
    case AST_Decl::NT_struct: return "a structure";
    case AST_Decl::NT_union: return "a union";
    case AST_Decl::NT_value: return "a value type";
    case AST_Decl::NT_except: return "an exception";
    case AST_Decl::NT_enum: return "an enumeration";
    case AST_Decl::NT_typedef: return "a typedef";
    case AST_Decl::NT_const: return "a constant";
    default: return "something else";
    }
}

} // namespace

// Counts one level of nesting; stops the parse beyond the nesting limit.
class IDL_Parser::Nesting {
public:
    Nesting(IDL_Parser& p, const IDL_Token& at) : m_p(p)
    {
        if (++m_p.m_nesting > m_p.m_limits.nesting) {
            --m_p.m_nesting;
            m_p.error(IDL_Diag::NESTING_TOO_DEEP, at,
                      {std::to_string(m_p.m_limits.nesting), IDL_Limits::option_of(&IDL_Limits::nesting)});
            throw Abort{};
        }
    }
    ~Nesting() { --m_p.m_nesting; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

private:
    IDL_Parser& m_p;
};

// A scope being read: one level of nesting and a frame of the prefix pragma.
class IDL_Parser::ScopeFrame {
public:
    ScopeFrame(IDL_Parser& p, const IDL_Token& at) : m_nesting(p, at), m_p(p) { m_p.m_ids.enter_scope(); }
    ~ScopeFrame() { m_p.m_ids.leave_scope(); }
    ScopeFrame(const ScopeFrame&) = delete;
    ScopeFrame& operator=(const ScopeFrame&) = delete;

private:
    Nesting m_nesting;
    IDL_Parser& m_p;
};

namespace {

// Marks a structure or union as being defined for as long as it is read.
class BeingDefined {
public:
    BeingDefined(std::vector<AST_Decl*>& stack, AST_Decl* d) : m_stack(stack) { m_stack.push_back(d); }
    ~BeingDefined() { m_stack.pop_back(); }
    BeingDefined(const BeingDefined&) = delete;
    BeingDefined& operator=(const BeingDefined&) = delete;

private:
    std::vector<AST_Decl*>& m_stack;
};

} // namespace

IDL_Parser::IDL_Parser(IDL_Lexer& lexer, AST_Root* root, IDL_Names& names, IDL_RepoIds& ids,
                       const IDL_Limits& limits)
    : m_lexer(lexer), m_tokens(lexer.take_tokens()), m_root(root), m_names(names), m_ids(ids),
      m_predefined(root, names), m_limits(limits)
{
    if (m_tokens.empty())
        m_tokens.emplace_back();
}

void IDL_Parser::parse()
{
    m_error_base = idl_error_count();
    m_root->set_position(m_lexer.file(m_lexer.main_file()), 1);
    m_root->set_in_main_file(1);
    try {
        body(m_root, Body::File);
    } catch (const Abort&) {
        // Reported where it happened; the tree is incomplete.
        return;
    }
    undefined_forwards(m_root);
    adopt_included_members(m_root);
}

void IDL_Parser::adopt_included_members(UTL_Scope* s)
{
    // What an #include brings into a body of the main file is written out
    // with that body: it belongs to the main file.
    AST_Decl* self = ScopeAsDecl(s);
    const bool adopt = self && self->node_type() != AST_Decl::NT_root && self->in_main_file();
    for (const auto& d : s->local_types())
        if (adopt)
            d->set_in_main_file(1);
    for (const auto& d : s->decls()) {
        if (adopt)
            d->set_in_main_file(1);
        if (UTL_Scope* inner = DeclAsScope(d.get()))
            adopt_included_members(inner);
    }
}

void IDL_Parser::undefined_forwards(UTL_Scope* s)
{
    // Structures and unions must be defined in the same compilation;
    // interfaces and value types may stay forward-declared. An interface
    // defined in another IDL file is common enough to be warned of only.
    for (const auto& d : s->pending()) {
        AST_Decl::NodeType k = d->node_type();
        const std::string file = d->file_name() ? d->file_name()->str() : "";
        if (k == AST_Decl::NT_struct || k == AST_Decl::NT_union)
            IDL_Diagnostics::error(IDL_Diag::FORWARD_NEVER_DEFINED, file, d->line(), 1, {d->local_name()->str()});
        else if (k == AST_Decl::NT_interface)
            IDL_Diagnostics::warning(IDL_Diag::FORWARD_INTERFACE_ELSEWHERE, file, d->line(), 1,
                                     {d->local_name()->str()});
    }
    for (const auto& d : s->decls())
        if (UTL_Scope* inner = DeclAsScope(d.get()))
            undefined_forwards(inner);
}

// ---------------------------------------------------------------- tokens

const IDL_Token& IDL_Parser::peek(std::size_t k) const
{
    std::size_t i = std::min(m_pos + k, m_tokens.size() - 1);
    return m_tokens[i];
}

void IDL_Parser::advance()
{
    if (m_pos + 1 < m_tokens.size())
        ++m_pos;
}

bool IDL_Parser::accept(IDL_Tok k)
{
    if (!at(k))
        return false;
    advance();
    return true;
}

IDL_Token IDL_Parser::expect(IDL_Tok k, const char* what)
{
    if (at(k)) {
        IDL_Token t = cur();
        advance();
        return t;
    }
    if (k == IDL_Tok::Gt && at(IDL_Tok::Shr)) {
        // "sequence<sequence<long>>": take one '>' of the '>>'.
        IDL_Token t = cur();
        t.kind = IDL_Tok::Gt;
        t.text = t.text.substr(0, 1);
        IDL_Token& rest = m_tokens[m_pos];
        rest.kind = IDL_Tok::Gt;
        rest.text = rest.text.substr(1);
        ++rest.column;
        return t;
    }
    syntax_error(what ? what : IDL_Lexer::describe(k));
}

IDL_Token IDL_Parser::expect_identifier(const char* what) { return expect(IDL_Tok::Identifier, what); }

std::string IDL_Parser::describe_current() const
{
    const IDL_Token& t = cur();
    switch (t.kind) {
    case IDL_Tok::End: return "end of file";
    case IDL_Tok::CBEBlock: return "back-end block '" + std::string(t.text) + "'";
    case IDL_Tok::Identifier: return "'" + std::string(t.escaped ? "_" : "") + std::string(t.text) + "'";
    default: return "'" + std::string(t.text) + "'";
    }
}

void IDL_Parser::error(IDL_Diag id, const IDL_Token& at, std::initializer_list<std::string> args)
{
    IDL_Loc l = loc(at);
    IDL_Diagnostics::error(id, l.file_name(), l.line, l.column, args);
}

void IDL_Parser::syntax_error(const std::string& expected)
{
    error(IDL_Diag::SYNTAX_ERROR, cur(), {expected, describe_current()});
    throw SyntaxError{};
}

void IDL_Parser::check_error_limit()
{
    if (idl_error_count() - m_error_base >= kMaxErrors) {
        error(IDL_Diag::PARSE_TOO_MANY_ERRORS, cur());
        throw Abort{};
    }
}

void IDL_Parser::recover(std::size_t start)
{
    int depth = 0;
    while (!at(IDL_Tok::End)) {
        IDL_Tok k = cur().kind;
        if (k == IDL_Tok::LBrace) {
            ++depth;
        } else if (k == IDL_Tok::RBrace) {
            if (depth == 0)
                return;  // the end of the enclosing scope
            --depth;
        } else if (k == IDL_Tok::Semi && depth == 0) {
            advance();
            return;
        } else if (k == IDL_Tok::CBEBlock && depth == 0 && m_pos != start) {
            return;
        }
        advance();
    }
}

void IDL_Parser::handle_directives(UTL_Scope* s)
{
    const std::vector<IDL_Directive>& dirs = m_lexer.directives();
    while (m_next_directive < dirs.size() && dirs[m_next_directive].before <= m_pos) {
        check_error_limit();
        const IDL_Directive& d = dirs[m_next_directive++];
        switch (d.kind) {
        case IDL_Directive::Prefix: m_ids.set_prefix(d.arg, depth_of(s)); break;
        case IDL_Directive::FileEnter:
            // The main file's own opening marker opens no included file.
            if (d.loc.file != m_lexer.file(m_lexer.main_file()).get() && m_file_depth++ == 0) {
                if (depth_of(s) > 0)
                    m_scoped_includes.insert(d.name);
                else
                    m_include_positions.emplace(d.name, m_root->decls().size());
            }
            m_ids.enter_file();
            break;
        case IDL_Directive::FileLeave:
            // Back in the main file: no included file is open.
            if (d.loc.file == m_lexer.file(m_lexer.main_file()).get())
                m_file_depth = 0;
            else if (m_file_depth > 0)
                --m_file_depth;
            m_ids.leave_file();
            break;
        case IDL_Directive::Id:
        case IDL_Directive::Version: {
            IDL_ScopedName n = parse_name_text(d.name, d.loc);
            AST_Decl* target = n.parts.empty() ? nullptr : resolve(s, n);
            if (n.parts.empty())
                IDL_Diagnostics::error(IDL_Diag::LEX_BAD_DIRECTIVE, d.loc.file_name(), d.loc.line, d.loc.column,
                                       {d.kind == IDL_Directive::Id ? "pragma ID" : "pragma version"});
            if (!target)
                break;
            if (d.kind == IDL_Directive::Id)
                m_ids.set_id(target, d.arg, d.loc);
            else
                m_ids.set_version(target, d.arg, d.loc);
            break;
        }
        }
    }
}

// --------------------------------------------------------------- building

void IDL_Parser::set_position(AST_Decl* d, const IDL_Token& t) const
{
    d->set_position(m_lexer.file(t.file), t.line, t.column);
    d->set_in_main_file(t.file == m_lexer.main_file() ? 1 : 0);
}

AST_Decl* IDL_Parser::place(UTL_Scope* s, std::unique_ptr<AST_Decl> d, const IDL_Token& at)
{
    set_position(d.get(), at);
    return s->add_decl(std::move(d));
}

void IDL_Parser::check_inherited_clashes(UTL_Scope* s, std::size_t direct_bases, const IDL_Token& at)
{
    // With one direct base, that base was checked when it was defined.
    if (direct_bases > 1)
        IDL_Checks::inherited_clashes(IDL_Checks::ancestors(s), loc(at));
}

void IDL_Parser::check_argument_name(ArgumentNames& seen, const std::string& name, const IDL_Token& at)
{
    std::string folded(name);
    for (char& c : folded)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    const auto [it, fresh] = seen.emplace(std::move(folded), name);
    if (fresh)
        return;
    if (it->second == name)
        error(IDL_Diag::REDEFINITION, at, {name});
    else
        error(IDL_Diag::REDEFINITION_CASE, at, {name, it->second});
}

void IDL_Parser::charge_inheritance(UTL_Scope* s, const IDL_Token& at)
{
    // Counted only up to what is left, so the count itself stays bounded.
    const std::size_t left = m_limits.inherited - std::min(m_inherited, m_limits.inherited);
    const std::size_t cost = IDL_Checks::inheritance_cost(s, left + 1);
    m_inherited += cost;
    if (cost > left) {
        error(IDL_Diag::INHERITED_TOO_MUCH, at,
              {std::string(at.text), std::to_string(m_limits.inherited), IDL_Limits::option_of(&IDL_Limits::inherited)});
        throw Abort{};
    }
}

AST_Decl* IDL_Parser::held_aggregate(AST_Type* t) const
{
    while (AST_Array* a = AST_Array::narrow_from_decl(t))
        t = a->base_type();
    if (!t)
        return nullptr;
    if (AST_Typedef::narrow_from_decl(t)) {
        const auto it = m_held.find(t);
        return it == m_held.end() ? nullptr : it->second;
    }
    if (AST_Structure::narrow_from_decl(t) || AST_Union::narrow_from_decl(t))
        return t;
    return nullptr;
}

void IDL_Parser::typedef_defined(AST_Decl* td, AST_Type* base, const IDL_Token& at)
{
    m_held[td] = held_aggregate(base);
    // Arrays and sequences between two typedefs do not end the chain.
    AST_Type* t = base;
    for (;;) {
        if (AST_Array* a = AST_Array::narrow_from_decl(t))
            t = a->base_type();
        else if (AST_Sequence* q = AST_Sequence::narrow_from_decl(t))
            t = q->base_type();
        else
            break;
    }
    const auto below = t ? m_typedef_depth.find(t) : m_typedef_depth.end();
    const std::size_t depth = 1 + (below == m_typedef_depth.end() ? 0 : below->second);
    m_typedef_depth[td] = depth;
    if (depth == m_limits.typedef_depth + 1)
        error(IDL_Diag::TYPEDEF_TOO_DEEP, at,
              {std::string(at.text), std::to_string(m_limits.typedef_depth),
               IDL_Limits::option_of(&IDL_Limits::typedef_depth)});
}

void IDL_Parser::own_anonymous(UTL_Scope* s, TypeSpec& ts)
{
    for (auto& t : ts.anon)
        s->add_local_type(std::move(t));
    ts.anon.clear();
}

std::size_t IDL_Parser::depth_of(UTL_Scope* s) const
{
    std::size_t n = 0;
    for (AST_Decl* d = ScopeAsDecl(s); d && d->node_type() != AST_Decl::NT_root; d = ScopeAsDecl(d->defined_in()))
        ++n;
    return n;
}

template <class Full, class Fwd>
Full* IDL_Parser::forward_dcl(UTL_Scope* s, const IDL_Token& name, std::unique_ptr<Full> fresh)
{
    std::string n(name.text);
    Full* full = nullptr;
    if (AST_Decl* existing = m_names.find_local(s, n)) {
        if (existing->node_type() != fresh->node_type()) {
            error(IDL_Diag::FORWARD_MISMATCH, name, {n, kind_word(existing->node_type())});
            return nullptr;
        }
        full = static_cast<Full*>(existing);
    } else {
        set_position(fresh.get(), name);
        full = static_cast<Full*>(s->add_pending(std::move(fresh)));
        m_names.declare(s, n, full, loc(name));
        m_ids.forward_declared(full);
    }
    AST_Decl* f = place(s, std::make_unique<Fwd>(Identifier(n), full), name);
    m_ids.alias(f, full);
    return full;
}

template <class Full>
Full* IDL_Parser::begin_definition(UTL_Scope* s, const IDL_Token& name, std::unique_ptr<Full> fresh)
{
    std::string n(name.text);
    AST_Decl* existing = m_names.find_local(s, n);
    if (existing && existing->node_type() == fresh->node_type()) {
        auto* full = static_cast<Full*>(existing);
        UTL_Scope* holder = full->defined_in();
        std::unique_ptr<AST_Decl> owned = (!full->is_defined() && holder) ? holder->take_pending(full) : nullptr;
        if (owned) {
            // The forward-declared node takes its place where the definition stands.
            set_position(full, name);
            s->add_decl(std::move(owned));
            m_ids.defined(full, loc(name));
            return full;
        }
    }
    auto* node = static_cast<Full*>(place(s, std::move(fresh), name));
    m_names.declare(s, n, node, loc(name));
    m_ids.declared(node);
    return node;
}

// ----------------------------------------------------------- declarations

void IDL_Parser::body(UTL_Scope* s, Body kind)
{
    for (;;) {
        check_error_limit();
        handle_directives(s);
        if (at(IDL_Tok::End))
            return;
        if (at(IDL_Tok::RBrace)) {
            if (kind != Body::File)
                return;
            error(IDL_Diag::SYNTAX_ERROR, cur(), {kDefinition, describe_current()});
            advance();
            continue;
        }
        std::size_t start = m_pos;
        try {
            definition(s, kind);
        } catch (const SyntaxError&) {
            recover(start);
        }
    }
}

void IDL_Parser::definition(UTL_Scope* s, Body kind)
{
    bool file_level = kind == Body::File || kind == Body::Module;
    bool has_members = kind == Body::Interface || kind == Body::Value;
    switch (cur().kind) {
    case IDL_Tok::KwModule:
        if (!file_level)
            syntax_error(kExport);
        module_dcl(s);
        break;
    case IDL_Tok::KwAbstract:
        if (!file_level)
            syntax_error(kExport);
        advance();
        if (at(IDL_Tok::KwInterface))
            interface_dcl(s, true, false);
        else if (at(IDL_Tok::KwValuetype))
            value_dcl(s, true, false);
        else
            syntax_error("'interface' or 'valuetype'");
        break;
    case IDL_Tok::KwLocal:
        if (!file_level)
            syntax_error(kExport);
        advance();
        if (!at(IDL_Tok::KwInterface))
            syntax_error("'interface'");
        interface_dcl(s, false, true);
        break;
    case IDL_Tok::KwCustom:
        if (!file_level)
            syntax_error(kExport);
        advance();
        if (!at(IDL_Tok::KwValuetype))
            syntax_error("'valuetype'");
        value_dcl(s, false, true);
        break;
    case IDL_Tok::KwInterface:
        if (!file_level)
            syntax_error(kExport);
        interface_dcl(s, false, false);
        break;
    case IDL_Tok::KwValuetype:
        if (!file_level)
            syntax_error(kExport);
        value_dcl(s, false, false);
        break;
    case IDL_Tok::CBEBlock:
        if (!file_level) {
            error(IDL_Diag::PARSE_BLOCK_PLACE, cur());
            advance();
            return;
        }
        cbe_block(s);
        return;
    case IDL_Tok::KwTypedef: typedef_dcl(s); break;
    case IDL_Tok::KwStruct: struct_type(s, true); break;
    case IDL_Tok::KwUnion: union_type(s, true); break;
    case IDL_Tok::KwEnum: enum_type(s); break;
    case IDL_Tok::KwNative: native_dcl(s); break;
    case IDL_Tok::KwConst: const_dcl(s); break;
    case IDL_Tok::KwException: except_dcl(s); break;
    case IDL_Tok::KwTypeid: type_id_dcl(s, false); break;
    case IDL_Tok::KwTypeprefix: type_id_dcl(s, true); break;
    case IDL_Tok::KwAttribute:
    case IDL_Tok::KwReadonly:
        if (!has_members)
            syntax_error(kDefinition);
        attr_dcl(s);
        break;
    case IDL_Tok::KwPublic:
    case IDL_Tok::KwPrivate:
        if (kind != Body::Value)
            syntax_error(file_level ? kDefinition : kExport);
        state_member(static_cast<AST_Value*>(s));
        break;
    case IDL_Tok::KwFactory:
        if (kind != Body::Value)
            syntax_error(file_level ? kDefinition : kExport);
        factory_dcl(static_cast<AST_Value*>(s));
        break;
    default:
        if (file_level && at(IDL_Tok::Identifier) && !cur().escaped && peek().kind == IDL_Tok::Identifier) {
            if (const char* what = unsupported_construct(cur().text)) {
                error(IDL_Diag::PARSE_UNSUPPORTED, cur(), {what});
                throw SyntaxError{};
            }
        }
        if (has_members)
            op_dcl(s);
        else
            syntax_error(kDefinition);
        break;
    }
    expect(IDL_Tok::Semi);
}

void IDL_Parser::module_dcl(UTL_Scope* s)
{
    expect(IDL_Tok::KwModule);
    IDL_Token name = expect_identifier("a module name");
    std::string n(name.text);
    expect(IDL_Tok::LBrace);
    AST_Module* m = nullptr;
    AST_Decl* existing = m_names.find_local(s, n);
    if (auto* first = AST_Module::narrow_from_decl(existing); first && existing->node_type() == AST_Decl::NT_module) {
        AST_Module*& last = m_last_opening[first];
        AST_Module* previous = last ? last : first;
        m = static_cast<AST_Module*>(place(s, std::make_unique<AST_Module>(Identifier(n), previous), name));
        last = m;
        m_names.add_opening(m, first);
        m_ids.alias(m, first);
    } else {
        m = static_cast<AST_Module*>(place(s, std::make_unique<AST_Module>(Identifier(n)), name));
        m_names.declare(s, n, m, loc(name));
        m_names.add_scope(m);
        m_ids.declared(m);
    }
    ScopeFrame frame(*this, name);
    body(m, Body::Module);
    expect(IDL_Tok::RBrace);
}

std::vector<AST_Interface*> IDL_Parser::interface_bases(UTL_Scope* s, const std::string& derived, bool is_abstract,
                                                       bool is_local)
{
    std::vector<AST_Interface*> out;
    std::unordered_set<AST_Decl*> named;
    do {
        IDL_ScopedName n = scoped_name();
        AST_Decl* d = unaliased(resolve(s, n));
        if (!d)
            continue;
        auto report = [&](IDL_Diag id) {
            IDL_Diagnostics::error(id, n.loc().file_name(), n.loc().line, n.loc().column, {derived, n.text()});
        };
        auto* b = AST_Interface::narrow_from_decl(d);
        if (!b) {
            IDL_Diagnostics::error(IDL_Diag::NOT_AN_INTERFACE, n.loc().file_name(), n.loc().line, n.loc().column,
                                   {n.text()});
        } else if (!b->is_defined()) {
            report(IDL_Diag::INHERIT_FORWARD);
        } else if (!named.insert(b).second) {
            report(IDL_Diag::INHERIT_TWICE);
        } else if (is_abstract && !b->is_abstract()) {
            report(IDL_Diag::INHERIT_ABSTRACT);
        } else if (!is_local && b->is_local()) {
            report(IDL_Diag::INHERIT_LOCAL);
        } else {
            out.push_back(b);
        }
    } while (accept(IDL_Tok::Comma));
    return out;
}

void IDL_Parser::interface_dcl(UTL_Scope* s, bool is_abstract, bool is_local)
{
    expect(IDL_Tok::KwInterface);
    IDL_Token name = expect_identifier("an interface name");
    std::string n(name.text);
    if (at(IDL_Tok::Semi)) {
        AST_Interface* full = forward_dcl<AST_Interface, AST_InterfaceFwd>(s, name, std::make_unique<AST_Interface>(Identifier(n), is_abstract, is_local));
        if (full && (full->is_abstract() != is_abstract || full->is_local() != is_local))
            error(IDL_Diag::FORWARD_MISMATCH, name,
                  {n, full->is_abstract() ? "abstract" : full->is_local() ? "local" : "unconstrained"});
        return;
    }
    // Bases are named before the interface itself is entered.
    std::vector<AST_Interface*> bases;
    if (accept(IDL_Tok::Colon))
        bases = interface_bases(s, n, is_abstract, is_local);
    expect(IDL_Tok::LBrace);
    auto* i = begin_definition(s, name, std::make_unique<AST_Interface>(Identifier(n), is_abstract, is_local));
    if (i->is_abstract() != is_abstract || i->is_local() != is_local)
        error(IDL_Diag::FORWARD_MISMATCH, name,
              {n, i->is_abstract() ? "abstract" : i->is_local() ? "local" : "unconstrained"});
    i->set_flags(is_abstract, is_local);
    i->set_inherits(bases);
    i->set_defined(true);
    m_names.add_scope(i);
    m_names.set_bases(i, std::vector<UTL_Scope*>(bases.begin(), bases.end()));
    charge_inheritance(i, name);
    check_inherited_clashes(i, bases.size(), name);
    ScopeFrame frame(*this, name);
    body(i, Body::Interface);
    expect(IDL_Tok::RBrace);
}

void IDL_Parser::value_dcl(UTL_Scope* s, bool is_abstract, bool is_custom)
{
    expect(IDL_Tok::KwValuetype);
    IDL_Token name = expect_identifier("a value type name");
    std::string n(name.text);
    if (at(IDL_Tok::Semi)) {
        if (is_custom)
            syntax_error("'{'");
        forward_dcl<AST_Value, AST_ValueFwd>(s, name, std::make_unique<AST_Value>(Identifier(n), is_abstract, false));
        return;
    }
    if (!is_abstract && !is_custom && !at(IDL_Tok::Colon) && !at(IDL_Tok::KwSupports) && !at(IDL_Tok::LBrace)) {
        value_box(s, name);
        return;
    }
    auto report = [](IDL_Diag id, const IDL_ScopedName& sn, const std::string& a, const std::string& b) {
        IDL_Diagnostics::error(id, sn.loc().file_name(), sn.loc().line, sn.loc().column, {a, b});
    };
    // The names after ':' or "supports": each must denote a defined
    // declaration of the list's class, and none may be named twice.
    std::unordered_set<AST_Decl*> named;
    auto read_bases = [&](IDL_Diag not_that_kind, auto& out) {
        using T = std::remove_pointer_t<typename std::decay_t<decltype(out)>::value_type>;
        do {
            IDL_ScopedName sn = scoped_name();
            AST_Decl* d = unaliased(resolve(s, sn));
            if (!d)
                continue;
            auto* b = T::narrow_from_decl(d);
            if (!b)
                report(not_that_kind, sn, sn.text(), "");
            else if (!b->is_defined())
                report(IDL_Diag::INHERIT_FORWARD, sn, n, sn.text());
            else if (!named.insert(b).second)
                report(IDL_Diag::INHERIT_TWICE, sn, n, sn.text());
            else
                out.push_back(b);
        } while (accept(IDL_Tok::Comma));
    };
    std::vector<AST_Value*> bases;
    bool truncatable = false;
    if (accept(IDL_Tok::Colon)) {
        truncatable = accept(IDL_Tok::KwTruncatable);
        read_bases(IDL_Diag::NOT_A_VALUE, bases);
    }
    std::vector<AST_Interface*> supports;
    if (accept(IDL_Tok::KwSupports))
        read_bases(IDL_Diag::NOT_AN_INTERFACE, supports);
    expect(IDL_Tok::LBrace);
    auto* v = begin_definition(s, name, std::make_unique<AST_Value>(Identifier(n), is_abstract, is_custom));
    if (v->is_abstract() != is_abstract)
        error(IDL_Diag::FORWARD_MISMATCH, name, {n, v->is_abstract() ? "abstract" : "concrete"});
    v->set_flags(is_abstract, is_custom);
    v->set_inherits(bases, truncatable);
    v->set_supports(supports);
    v->set_defined(true);
    m_names.add_scope(v);
    std::vector<UTL_Scope*> lookup_bases(bases.begin(), bases.end());
    lookup_bases.insert(lookup_bases.end(), supports.begin(), supports.end());
    m_names.set_bases(v, lookup_bases);
    charge_inheritance(v, name);
    check_inherited_clashes(v, lookup_bases.size(), name);
    ScopeFrame frame(*this, name);
    body(v, Body::Value);
    expect(IDL_Tok::RBrace);
}

void IDL_Parser::value_box(UTL_Scope* s, const IDL_Token& name)
{
    IDL_Token at_type = cur();
    TypeSpec ts;
    type_spec(s, ts, true);
    if (AST_Value::narrow_from_decl(ts.type) || AST_ValueBox::narrow_from_decl(ts.type))
        error(IDL_Diag::VALUE_BOX_VALUE, at_type, {ts.type->local_name()->str()});
    check_by_value(ts.type, at_type);
    own_anonymous(s, ts);
    std::string n(name.text);
    AST_Decl* box = place(s, std::make_unique<AST_ValueBox>(Identifier(n), ts.type), name);
    m_names.declare(s, n, box, loc(name));
    m_ids.declared(box);
}

void IDL_Parser::state_member(AST_Value* v)
{
    IDL_Token kw = cur();
    bool is_public = at(IDL_Tok::KwPublic);
    advance();
    if (v->is_abstract())
        error(IDL_Diag::VALUE_ABSTRACT_STATE, kw, {v->local_name()->str()});
    TypeSpec ts;
    type_spec(v, ts, false);
    for (const Declarator& d : declarators(v)) {
        AST_Type* t = declarator_type(ts.type, d, ts);
        check_by_value(t, d.token);
        AST_Decl* m = place(v, std::make_unique<AST_StateMember>(is_public, t, Identifier(d.name)), d.token);
        m_names.declare(v, d.name, m, loc(d.token));
    }
    own_anonymous(v, ts);
}

void IDL_Parser::factory_dcl(AST_Value* v)
{
    IDL_Token kw = expect(IDL_Tok::KwFactory);
    IDL_Token name = expect_identifier("a factory name");
    std::string n(name.text);
    if (v->is_abstract())
        error(IDL_Diag::VALUE_ABSTRACT_STATE, kw, {v->local_name()->str()});
    auto* f = static_cast<AST_Factory*>(place(v, std::make_unique<AST_Factory>(Identifier(n)), name));
    m_names.declare(v, n, f, loc(name));
    Nesting nesting(*this, name);
    expect(IDL_Tok::LParen);
    ArgumentNames names;
    if (!at(IDL_Tok::RParen)) {
        do {
            expect(IDL_Tok::KwIn);
            TypeSpec ts;
            simple_type_spec(f, ts, false);
            IDL_Token an = expect_identifier("an argument name");
            check_by_value(ts.type, an);
            std::string a(an.text);
            place(f, std::make_unique<AST_Argument>(AST_Argument::dir_IN, ts.type, UTL_IdList(Identifier(a))), an);
            check_argument_name(names, a, an);
            own_anonymous(f, ts);
        } while (accept(IDL_Tok::Comma));
    }
    expect(IDL_Tok::RParen);
    if (at(IDL_Tok::KwRaises))
        raises(v, f->exceptions());
}

void IDL_Parser::const_dcl(UTL_Scope* s)
{
    expect(IDL_Tok::KwConst);
    IDL_Token type_at = cur();
    TypeSpec ts;
    if (at(IDL_Tok::KwFixed) && peek().kind != IDL_Tok::Lt) {
        // "const fixed F = 1.5d;": the digits come from the value.
        auto f = std::make_unique<AST_Fixed>(0, 0);
        set_position(f.get(), cur());
        ts.type = f.get();
        ts.anon.push_back(std::move(f));
        advance();
    } else {
        simple_type_spec(s, ts, false);
    }
    EV::ExprType target = IDL_ConstEval::expr_type_of(ts.type);
    if (target == EV::EV_none) {
        error(IDL_Diag::CONST_BAD_TYPE, type_at, {IDL_ConstEval::type_name(ts.type)});
        throw SyntaxError{};
    }
    IDL_Token name = expect_identifier("a constant name");
    expect(IDL_Tok::Assign);
    IDL_Token value_at = cur();
    EV::ExprType saved = m_target;
    m_target = target;
    IDL_ConstValue v = const_exp(s);
    m_target = saved;
    AST_Expression e = IDL_ConstEval::coerce(v, ts.type, loc(value_at));
    own_anonymous(s, ts);
    std::string n(name.text);
    AST_Decl* c = place(s, std::make_unique<AST_Constant>(ts.type, std::move(e), Identifier(n)), name);
    m_names.declare(s, n, c, loc(name));
    m_ids.declared(c);
}

void IDL_Parser::typedef_dcl(UTL_Scope* s)
{
    expect(IDL_Tok::KwTypedef);
    TypeSpec ts;
    type_spec(s, ts, true);
    for (const Declarator& d : declarators(s)) {
        AST_Type* t = declarator_type(ts.type, d, ts);
        AST_Decl* td = place(s, std::make_unique<AST_Typedef>(t, Identifier(d.name)), d.token);
        typedef_defined(td, t, d.token);
        m_names.declare(s, d.name, td, loc(d.token));
        m_ids.declared(td);
    }
    own_anonymous(s, ts);
}

void IDL_Parser::native_dcl(UTL_Scope* s)
{
    expect(IDL_Tok::KwNative);
    IDL_Token name = expect_identifier("a type name");
    std::string n(name.text);
    AST_Decl* d = place(s, std::make_unique<AST_Native>(Identifier(n)), name);
    m_names.declare(s, n, d, loc(name));
    m_ids.declared(d);
}

AST_Type* IDL_Parser::struct_type(UTL_Scope* s, bool allow_forward)
{
    expect(IDL_Tok::KwStruct);
    IDL_Token name = expect_identifier("a structure name");
    std::string n(name.text);
    if (allow_forward && at(IDL_Tok::Semi))
        return forward_dcl<AST_Structure, AST_StructFwd>(s, name, std::make_unique<AST_Structure>(Identifier(n)));
    expect(IDL_Tok::LBrace);
    auto* st = begin_definition(s, name, std::make_unique<AST_Structure>(Identifier(n)));
    m_names.add_scope(st);
    {
        ScopeFrame frame(*this, name);
        BeingDefined being(m_being_defined, st);
        members(st);
    }
    st->set_defined(true);
    expect(IDL_Tok::RBrace);
    return st;
}

void IDL_Parser::members(AST_Structure* st)
{
    for (;;) {
        check_error_limit();
        handle_directives(st);
        if (at(IDL_Tok::RBrace) || at(IDL_Tok::End))
            return;
        std::size_t start = m_pos;
        try {
            TypeSpec ts;
            type_spec(st, ts, false);
            for (const Declarator& d : declarators(st)) {
                AST_Type* t = declarator_type(ts.type, d, ts);
                check_by_value(t, d.token);
                AST_Decl* f = place(st, std::make_unique<AST_Field>(t, Identifier(d.name)), d.token);
                m_names.declare(st, d.name, f, loc(d.token));
            }
            own_anonymous(st, ts);
            expect(IDL_Tok::Semi);
        } catch (const SyntaxError&) {
            recover(start);
        }
    }
}

AST_Type* IDL_Parser::union_type(UTL_Scope* s, bool allow_forward)
{
    expect(IDL_Tok::KwUnion);
    IDL_Token name = expect_identifier("a union name");
    std::string n(name.text);
    if (allow_forward && at(IDL_Tok::Semi))
        return forward_dcl<AST_Union, AST_UnionFwd>(s, name, std::make_unique<AST_Union>(Identifier(n), nullptr));
    expect(IDL_Tok::KwSwitch);
    auto* u = begin_definition(s, name, std::make_unique<AST_Union>(Identifier(n), nullptr));
    m_names.add_scope(u);
    {
        ScopeFrame frame(*this, name);
        BeingDefined being(m_being_defined, u);
        expect(IDL_Tok::LParen);
        IDL_Token disc_at = cur();
        TypeSpec disc;
        if (at(IDL_Tok::KwEnum))
            disc.type = enum_type(u);
        else
            simple_type_spec(u, disc, false);
        own_anonymous(u, disc);
        EV::ExprType k = IDL_ConstEval::expr_type_of(disc.type);
        bool ok = k != EV::EV_none && k != EV::EV_float && k != EV::EV_double && k != EV::EV_longdouble &&
                  k != EV::EV_string && k != EV::EV_wstring && k != EV::EV_fixed;
        u->set_disc_type(disc.type);
        if (!ok) {
            error(IDL_Diag::UNION_DISC_TYPE, disc_at, {IDL_ConstEval::type_name(disc.type)});
            throw SyntaxError{};
        }
        expect(IDL_Tok::RParen);
        expect(IDL_Tok::LBrace);
        union_body(u);
    }
    u->set_defined(true);
    expect(IDL_Tok::RBrace);
    return u;
}

void IDL_Parser::union_body(AST_Union* u)
{
    // Label values seen, by kind-independent bits: one discriminator type
    // gives every label the same kind.
    std::set<std::uint64_t> seen;
    bool seen_default = false;
    IDL_Token default_at{};
    EV::ExprType target = IDL_ConstEval::expr_type_of(u->disc_type());
    for (;;) {
        check_error_limit();
        handle_directives(u);
        if (at(IDL_Tok::RBrace) || at(IDL_Tok::End)) {
            if (seen_default && labels_cover(u->disc_type(), seen.size()))
                error(IDL_Diag::UNION_DEFAULT_COVERED, default_at, {IDL_ConstEval::type_name(u->disc_type())});
            return;
        }
        std::size_t start = m_pos;
        try {
            std::vector<AST_UnionLabel> labels;
            do {
                IDL_Token label_at = cur();
                if (accept(IDL_Tok::KwDefault)) {
                    expect(IDL_Tok::Colon);
                    if (seen_default)
                        error(IDL_Diag::UNION_DEFAULT_DUP, label_at);
                    seen_default = true;
                    default_at = label_at;
                    labels.emplace_back();
                    continue;
                }
                expect(IDL_Tok::KwCase, "'case' or 'default'");
                IDL_Token value_at = cur();
                EV::ExprType saved = m_target;
                m_target = target;
                IDL_ConstValue v = const_exp(u);
                m_target = saved;
                expect(IDL_Tok::Colon);
                AST_Expression e = IDL_ConstEval::coerce(v, u->disc_type(), loc(value_at));
                if (e.type() == EV::EV_none)
                    continue;
                std::uint64_t key = e.type() == EV::EV_enum ? e.enum_val()->ordinal()
                                    : e.is_signed_integer() ? static_cast<std::uint64_t>(e.signed_int())
                                                            : e.unsigned_int();
                if (!seen.insert(key).second)
                    error(IDL_Diag::UNION_LABEL_DUP, value_at, {IDL_ConstEval::describe(v)});
                labels.emplace_back(std::move(e));
            } while (at(IDL_Tok::KwCase) || at(IDL_Tok::KwDefault));
            TypeSpec ts;
            type_spec(u, ts, false);
            Declarator d = declarator(u);
            AST_Type* t = declarator_type(ts.type, d, ts);
            check_by_value(t, d.token);
            AST_Decl* b = place(u, std::make_unique<AST_UnionBranch>(std::move(labels), t, Identifier(d.name)), d.token);
            m_names.declare(u, d.name, b, loc(d.token));
            own_anonymous(u, ts);
            expect(IDL_Tok::Semi);
        } catch (const SyntaxError&) {
            recover(start);
        }
    }
}

AST_Type* IDL_Parser::enum_type(UTL_Scope* s)
{
    expect(IDL_Tok::KwEnum);
    IDL_Token name = expect_identifier("an enumeration name");
    std::string n(name.text);
    expect(IDL_Tok::LBrace);
    auto* e = static_cast<AST_Enum*>(place(s, std::make_unique<AST_Enum>(Identifier(n)), name));
    m_names.declare(s, n, e, loc(name));
    m_ids.declared(e);
    m_names.add_scope(e);
    unsigned long ordinal = 0;
    do {
        IDL_Token t = expect_identifier("an enumerator");
        std::string v(t.text);
        AST_Decl* ev = place(e, std::make_unique<AST_EnumVal>(ordinal++, Identifier(v)), t);
        // Enumerators belong to the enclosing scope as well.
        if (m_names.declare(e, v, ev, loc(t)))
            m_names.declare(s, v, ev, loc(t));
    } while (accept(IDL_Tok::Comma));
    expect(IDL_Tok::RBrace);
    return e;
}

void IDL_Parser::except_dcl(UTL_Scope* s)
{
    expect(IDL_Tok::KwException);
    IDL_Token name = expect_identifier("an exception name");
    std::string n(name.text);
    expect(IDL_Tok::LBrace);
    auto* ex = static_cast<AST_Exception*>(place(s, std::make_unique<AST_Exception>(Identifier(n)), name));
    m_names.declare(s, n, ex, loc(name));
    m_ids.declared(ex);
    m_names.add_scope(ex);
    {
        ScopeFrame frame(*this, name);
        members(ex);
    }
    ex->set_defined(true);
    expect(IDL_Tok::RBrace);
}

void IDL_Parser::op_dcl(UTL_Scope* s)
{
    bool oneway = accept(IDL_Tok::KwOneway);
    TypeSpec ret;
    IDL_Token type_at = cur();
    if (accept(IDL_Tok::KwVoid))
        ret.type = m_predefined.get(AST_PredefinedType::PT_void);
    else
        simple_type_spec(s, ret, false);
    IDL_Token name = expect_identifier("an operation name");
    std::string n(name.text);
    auto* op = static_cast<AST_Operation*>(place(
        s,
        std::make_unique<AST_Operation>(ret.type, oneway ? AST_Operation::OP_oneway : AST_Operation::OP_noflags,
                                        Identifier(n)),
        name));
    if (IDL_Checks::member_against_bases(s, n, m_names, loc(name)))
        m_names.declare(s, n, op, loc(name));
    m_ids.declared(op);
    own_anonymous(op, ret);
    check_by_value(ret.type, type_at);
    check_local_use(s, ret.type, type_at, "the result of '" + n + "'");
    Nesting nesting(*this, name);
    expect(IDL_Tok::LParen);
    ArgumentNames names;
    if (!at(IDL_Tok::RParen)) {
        do {
            AST_Argument::Direction dir = AST_Argument::dir_IN;
            if (accept(IDL_Tok::KwIn))
                dir = AST_Argument::dir_IN;
            else if (accept(IDL_Tok::KwOut))
                dir = AST_Argument::dir_OUT;
            else if (accept(IDL_Tok::KwInout))
                dir = AST_Argument::dir_INOUT;
            else
                syntax_error("'in', 'out' or 'inout'");
            TypeSpec ts;
            IDL_Token arg_type_at = cur();
            simple_type_spec(op, ts, false);
            IDL_Token an = expect_identifier("an argument name");
            check_by_value(ts.type, arg_type_at);
            std::string a(an.text);
            check_local_use(s, ts.type, arg_type_at, "argument '" + a + "' of '" + n + "'");
            place(op, std::make_unique<AST_Argument>(dir, ts.type, UTL_IdList(Identifier(a))), an);
            check_argument_name(names, a, an);
            own_anonymous(op, ts);
        } while (accept(IDL_Tok::Comma));
    }
    expect(IDL_Tok::RParen);
    if (at(IDL_Tok::KwRaises))
        raises(s, op->exceptions());
    if (accept(IDL_Tok::KwContext)) {
        expect(IDL_Tok::LParen);
        std::vector<std::string> ctx;
        do
            ctx.push_back(string_literal());
        while (accept(IDL_Tok::Comma));
        expect(IDL_Tok::RParen);
        op->set_context(UTL_StrList(std::move(ctx)));
    }
    IDL_Checks::oneway(op, loc(name));
}

void IDL_Parser::attr_dcl(UTL_Scope* s)
{
    bool readonly = accept(IDL_Tok::KwReadonly);
    expect(IDL_Tok::KwAttribute);
    TypeSpec ts;
    IDL_Token type_at = cur();
    simple_type_spec(s, ts, false);
    own_anonymous(s, ts);
    check_by_value(ts.type, type_at);
    std::vector<AST_Attribute*> attrs;
    do {
        IDL_Token name = expect_identifier("an attribute name");
        std::string n(name.text);
        auto* a = static_cast<AST_Attribute*>(
            place(s, std::make_unique<AST_Attribute>(readonly, ts.type, Identifier(n)), name));
        if (IDL_Checks::member_against_bases(s, n, m_names, loc(name)))
            m_names.declare(s, n, a, loc(name));
        m_ids.declared(a);
        check_local_use(s, ts.type, type_at, "attribute '" + n + "'");
        attrs.push_back(a);
    } while (accept(IDL_Tok::Comma));
    bool any_raises = at(IDL_Tok::KwRaises) || at(IDL_Tok::KwGetraises) || at(IDL_Tok::KwSetraises);
    if (any_raises && attrs.size() > 1)
        syntax_error("';'");
    if (readonly) {
        if (at(IDL_Tok::KwRaises))
            raises(s, attrs[0]->get_exceptions());
        if (at(IDL_Tok::KwSetraises) || at(IDL_Tok::KwGetraises)) {
            error(IDL_Diag::ATTR_RAISES_READONLY, cur());
            throw SyntaxError{};
        }
    } else {
        if (at(IDL_Tok::KwGetraises))
            raises(s, attrs[0]->get_exceptions());
        if (at(IDL_Tok::KwSetraises))
            raises(s, attrs[0]->set_exceptions());
    }
}

void IDL_Parser::raises(UTL_Scope* s, UTL_ExceptList* list)
{
    advance();  // raises, getraises or setraises
    expect(IDL_Tok::LParen);
    do {
        IDL_ScopedName n = scoped_name();
        AST_Decl* d = resolve(s, n);
        if (!d)
            continue;
        auto* ex = AST_Exception::narrow_from_decl(d);
        if (!ex || d->node_type() != AST_Decl::NT_except) {
            IDL_Diagnostics::error(IDL_Diag::NOT_AN_EXCEPTION, n.loc().file_name(), n.loc().line, n.loc().column,
                                   {n.text()});
            continue;
        }
        list->append(ex);
    } while (accept(IDL_Tok::Comma));
    expect(IDL_Tok::RParen);
}

void IDL_Parser::type_id_dcl(UTL_Scope* s, bool is_prefix)
{
    advance();  // typeid or typeprefix
    IDL_ScopedName n = scoped_name();
    std::string text = string_literal();
    AST_Decl* d = resolve(s, n);
    if (!d)
        return;
    if (is_prefix)
        m_ids.set_typeprefix(d, text);
    else
        m_ids.set_id(d, text, n.loc());
}

void IDL_Parser::cbe_block(UTL_Scope* s)
{
    IDL_Token t = cur();
    advance();
    place(s, std::make_unique<AST_CBE_Specific>(std::string(t.text), m_lexer.literal(t.value).text), t);
}

// ------------------------------------------------------------------ types

bool IDL_Parser::at_base_type() const
{
    switch (cur().kind) {
    case IDL_Tok::KwFloat:
    case IDL_Tok::KwDouble:
    case IDL_Tok::KwLong:
    case IDL_Tok::KwShort:
    case IDL_Tok::KwUnsigned:
    case IDL_Tok::KwChar:
    case IDL_Tok::KwWchar:
    case IDL_Tok::KwBoolean:
    case IDL_Tok::KwOctet:
    case IDL_Tok::KwAny:
    case IDL_Tok::KwObject:
    case IDL_Tok::KwValueBase: return true;
    default: return false;
    }
}

AST_Type* IDL_Parser::base_type()
{
    using PT = AST_PredefinedType;
    IDL_Tok k = cur().kind;
    advance();
    switch (k) {
    case IDL_Tok::KwFloat: return m_predefined.get(PT::PT_float);
    case IDL_Tok::KwDouble: return m_predefined.get(PT::PT_double);
    case IDL_Tok::KwLong:
        if (accept(IDL_Tok::KwLong))
            return m_predefined.get(PT::PT_longlong);
        if (accept(IDL_Tok::KwDouble))
            return m_predefined.get(PT::PT_longdouble);
        return m_predefined.get(PT::PT_long);
    case IDL_Tok::KwShort: return m_predefined.get(PT::PT_short);
    case IDL_Tok::KwUnsigned:
        if (accept(IDL_Tok::KwShort))
            return m_predefined.get(PT::PT_ushort);
        if (accept(IDL_Tok::KwLong))
            return m_predefined.get(accept(IDL_Tok::KwLong) ? PT::PT_ulonglong : PT::PT_ulong);
        syntax_error("'short' or 'long'");
    case IDL_Tok::KwChar: return m_predefined.get(PT::PT_char);
    case IDL_Tok::KwWchar: return m_predefined.get(PT::PT_wchar);
    case IDL_Tok::KwBoolean: return m_predefined.get(PT::PT_boolean);
    case IDL_Tok::KwOctet: return m_predefined.get(PT::PT_octet);
    case IDL_Tok::KwAny: return m_predefined.get(PT::PT_any);
    case IDL_Tok::KwObject: return m_predefined.object();
    default: return m_predefined.value_base();
    }
}

AST_Type* IDL_Parser::named_type(UTL_Scope* s)
{
    IDL_ScopedName n = scoped_name();
    AST_Decl* d = resolve(s, n);
    if (!d)
        throw SyntaxError{};
    const IDL_Loc& l = n.locs.back();
    if (d->node_type() == AST_Decl::NT_except) {
        IDL_Diagnostics::error(IDL_Diag::EXCEPTION_AS_TYPE, l.file_name(), l.line, l.column, {n.text()});
        throw SyntaxError{};
    }
    auto* t = AST_Type::narrow_from_decl(d);
    if (!t) {
        IDL_Diagnostics::error(IDL_Diag::NOT_A_TYPE, l.file_name(), l.line, l.column, {n.text()});
        throw SyntaxError{};
    }
    return t;
}

void IDL_Parser::type_spec(UTL_Scope* s, TypeSpec& out, bool names_type)
{
    switch (cur().kind) {
    case IDL_Tok::KwStruct: out.type = struct_type(s, false); break;
    case IDL_Tok::KwUnion: out.type = union_type(s, false); break;
    case IDL_Tok::KwEnum: out.type = enum_type(s); break;
    default: simple_type_spec(s, out, names_type); break;
    }
}

void IDL_Parser::simple_type_spec(UTL_Scope* s, TypeSpec& out, bool names_type)
{
    if (at_base_type()) {
        out.type = base_type();
        return;
    }
    IDL_Token t = cur();
    switch (t.kind) {
    case IDL_Tok::KwSequence: {
        advance();
        Nesting nesting(*this, t);
        expect(IDL_Tok::Lt);
        TypeSpec element;
        bool saved = m_in_template;
        m_in_template = true;
        simple_type_spec(s, element, false);
        unsigned long bound = accept(IDL_Tok::Comma) ? positive_int(s) : 0;
        m_in_template = saved;
        expect(IDL_Tok::Gt);
        auto seq = std::make_unique<AST_Sequence>(element.type, bound);
        set_position(seq.get(), t);
        if (std::find(m_being_defined.begin(), m_being_defined.end(), element.type) != m_being_defined.end())
            seq->set_recursive(true);
        for (auto& a : element.anon)
            out.anon.push_back(std::move(a));
        out.type = seq.get();
        out.anon.push_back(std::move(seq));
        return;
    }
    case IDL_Tok::KwString:
    case IDL_Tok::KwWstring: {
        bool wide = t.kind == IDL_Tok::KwWstring;
        advance();
        if (!accept(IDL_Tok::Lt)) {
            out.type = m_predefined.string(wide);
            return;
        }
        bool saved = m_in_template;
        m_in_template = true;
        unsigned long bound = positive_int(s);
        m_in_template = saved;
        expect(IDL_Tok::Gt);
        auto str = std::make_unique<AST_String>(wide, bound, !names_type);
        set_position(str.get(), t);
        out.type = str.get();
        out.anon.push_back(std::move(str));
        return;
    }
    case IDL_Tok::KwFixed: {
        advance();
        expect(IDL_Tok::Lt);
        bool saved = m_in_template;
        m_in_template = true;
        unsigned long digits = positive_int(s);
        expect(IDL_Tok::Comma);
        unsigned long scale = positive_int(s, true);
        m_in_template = saved;
        expect(IDL_Tok::Gt);
        if (digits > 31 || scale > digits)
            error(IDL_Diag::FIXED_DIGITS, t, {std::to_string(digits), std::to_string(scale)});
        auto f = std::make_unique<AST_Fixed>(static_cast<unsigned>(std::min(digits, 31UL)),
                                             static_cast<unsigned>(std::min(scale, std::min(digits, 31UL))));
        set_position(f.get(), t);
        out.type = f.get();
        out.anon.push_back(std::move(f));
        return;
    }
    case IDL_Tok::Identifier:
    case IDL_Tok::ColonColon: out.type = named_type(s); return;
    default: syntax_error("a type");
    }
}

IDL_Parser::Declarator IDL_Parser::declarator(UTL_Scope* s)
{
    Declarator d;
    d.token = expect_identifier("a declarator name");
    d.name = std::string(d.token.text);
    while (accept(IDL_Tok::LBracket)) {
        d.dims.push_back(positive_int(s));
        expect(IDL_Tok::RBracket);
    }
    return d;
}

std::vector<IDL_Parser::Declarator> IDL_Parser::declarators(UTL_Scope* s)
{
    std::vector<Declarator> out;
    do
        out.push_back(declarator(s));
    while (accept(IDL_Tok::Comma));
    return out;
}

AST_Type* IDL_Parser::declarator_type(AST_Type* base, const Declarator& d, TypeSpec& anon)
{
    if (d.dims.empty())
        return base;
    auto arr = std::make_unique<AST_Array>(Identifier("array"), base, d.dims);
    set_position(arr.get(), d.token);
    AST_Type* t = arr.get();
    anon.anon.push_back(std::move(arr));
    return t;
}

void IDL_Parser::check_by_value(AST_Type* t, const IDL_Token& where)
{
    // The aggregate is found through the typedefs' records, not by walking
    // their chains again at every use.
    if (AST_Decl* held = held_aggregate(t))
        IDL_Checks::complete_by_value(AST_Type::narrow_from_decl(held), loc(where));
}

void IDL_Parser::check_local_use(UTL_Scope* s, AST_Type* t, const IDL_Token& where, const std::string& what)
{
    auto* i = AST_Interface::narrow_from_decl(ScopeAsDecl(s));
    if (!i || i->is_local())
        return;
    if (AST_Interface* local = IDL_Checks::local_type(t, m_local_types))
        error(IDL_Diag::LOCAL_IN_UNCONSTRAINED, where, {i->local_name()->str(), local->local_name()->str(), what});
}

// ------------------------------------------------------------------ names

AST_Decl* IDL_Parser::resolve(UTL_Scope* s, const IDL_ScopedName& n) { return m_names.resolve(s, n); }

IDL_ScopedName IDL_Parser::scoped_name()
{
    IDL_ScopedName n;
    if (accept(IDL_Tok::ColonColon))
        n.global = true;
    for (;;) {
        // "CORBA::Object" and "CORBA::ValueBase" name keywords after "::".
        bool keyword_part = !n.parts.empty() && (at(IDL_Tok::KwObject) || at(IDL_Tok::KwValueBase));
        IDL_Token t = keyword_part ? expect(cur().kind) : expect_identifier("a name");
        n.parts.emplace_back(t.text);
        n.locs.push_back(loc(t));
        if (!at(IDL_Tok::ColonColon))
            break;
        advance();
    }
    return n;
}

IDL_ScopedName IDL_Parser::parse_name_text(const std::string& text, const IDL_Loc& l) const
{
    IDL_ScopedName n;
    std::size_t i = 0;
    if (text.compare(0, 2, "::") == 0) {
        n.global = true;
        i = 2;
    }
    while (i <= text.size()) {
        std::size_t end = text.find("::", i);
        std::string part = text.substr(i, end == std::string::npos ? std::string::npos : end - i);
        if (!part.empty() && part[0] == '_')
            part.erase(0, 1);
        if (part.empty())
            return IDL_ScopedName();
        n.parts.push_back(part);
        n.locs.push_back(l);
        if (end == std::string::npos)
            break;
        i = end + 2;
    }
    return n;
}

// -------------------------------------------------------------- constants

IDL_ConstValue IDL_Parser::const_exp(UTL_Scope* s) { return or_expr(s); }

// One left-associative level with a single operator, over operands that
// `operand` reads: or, xor and and.
IDL_ConstValue IDL_Parser::single_operator_expr(UTL_Scope* s, IDL_ConstValue (IDL_Parser::*operand)(UTL_Scope*),
                                                IDL_Tok tok, IDL_ConstEval::BinaryOp op)
{
    IDL_ConstValue v = (this->*operand)(s);
    while (at(tok)) {
        IDL_Token t = cur();
        advance();
        IDL_ConstValue r = (this->*operand)(s);
        v = IDL_ConstEval::binary(op, v, r, loc(t));
    }
    return v;
}

IDL_ConstValue IDL_Parser::or_expr(UTL_Scope* s)
{
    return single_operator_expr(s, &IDL_Parser::xor_expr, IDL_Tok::Pipe, IDL_ConstEval::BinaryOp::Or);
}

IDL_ConstValue IDL_Parser::xor_expr(UTL_Scope* s)
{
    return single_operator_expr(s, &IDL_Parser::and_expr, IDL_Tok::Caret, IDL_ConstEval::BinaryOp::Xor);
}

IDL_ConstValue IDL_Parser::and_expr(UTL_Scope* s)
{
    return single_operator_expr(s, &IDL_Parser::shift_expr, IDL_Tok::Amp, IDL_ConstEval::BinaryOp::And);
}

IDL_ConstValue IDL_Parser::shift_expr(UTL_Scope* s)
{
    IDL_ConstValue v = add_expr(s);
    while (at(IDL_Tok::Shl) || (at(IDL_Tok::Shr) && !m_in_template)) {
        IDL_Token op = cur();
        advance();
        IDL_ConstValue r = add_expr(s);
        v = IDL_ConstEval::binary(op.kind == IDL_Tok::Shl ? IDL_ConstEval::BinaryOp::Shl : IDL_ConstEval::BinaryOp::Shr,
                                  v, r, loc(op));
    }
    return v;
}

IDL_ConstValue IDL_Parser::add_expr(UTL_Scope* s)
{
    IDL_ConstValue v = mult_expr(s);
    while (at(IDL_Tok::Plus) || at(IDL_Tok::Minus)) {
        IDL_Token op = cur();
        advance();
        IDL_ConstValue r = mult_expr(s);
        v = IDL_ConstEval::binary(op.kind == IDL_Tok::Plus ? IDL_ConstEval::BinaryOp::Add : IDL_ConstEval::BinaryOp::Sub,
                                  v, r, loc(op));
    }
    return v;
}

IDL_ConstValue IDL_Parser::mult_expr(UTL_Scope* s)
{
    IDL_ConstValue v = unary_expr(s);
    while (at(IDL_Tok::Star) || at(IDL_Tok::Slash) || at(IDL_Tok::Percent)) {
        IDL_Token op = cur();
        advance();
        IDL_ConstValue r = unary_expr(s);
        IDL_ConstEval::BinaryOp b = op.kind == IDL_Tok::Star    ? IDL_ConstEval::BinaryOp::Mul
                                    : op.kind == IDL_Tok::Slash ? IDL_ConstEval::BinaryOp::Div
                                                                : IDL_ConstEval::BinaryOp::Mod;
        v = IDL_ConstEval::binary(b, v, r, loc(op));
    }
    return v;
}

IDL_ConstValue IDL_Parser::unary_expr(UTL_Scope* s)
{
    IDL_Token op = cur();
    IDL_ConstEval::UnaryOp u;
    switch (op.kind) {
    case IDL_Tok::Minus: u = IDL_ConstEval::UnaryOp::Minus; break;
    case IDL_Tok::Plus: u = IDL_ConstEval::UnaryOp::Plus; break;
    case IDL_Tok::Tilde: u = IDL_ConstEval::UnaryOp::Complement; break;
    default: return primary_expr(s);
    }
    advance();
    Nesting nesting(*this, op);
    IDL_ConstValue v = unary_expr(s);
    return IDL_ConstEval::unary(u, v, m_target, loc(op));
}

IDL_ConstValue IDL_Parser::primary_expr(UTL_Scope* s)
{
    IDL_Token t = cur();
    switch (t.kind) {
    case IDL_Tok::IntLit: advance(); return IDL_ConstEval::integer_literal(t.text, loc(t));
    case IDL_Tok::FloatLit: advance(); return IDL_ConstEval::float_literal(t.text, loc(t));
    case IDL_Tok::FixedLit: advance(); return IDL_ConstEval::fixed_literal(t.text, loc(t));
    case IDL_Tok::CharLit:
    case IDL_Tok::WCharLit: {
        advance();
        const IDL_Literal& lit = m_lexer.literal(t.value);
        return IDL_ConstValue::character(t.kind == IDL_Tok::WCharLit, lit.code, lit.text);
    }
    case IDL_Tok::StringLit:
    case IDL_Tok::WStringLit: {
        std::string text;
        while (at(t.kind)) {
            text += m_lexer.literal(cur().value).text;
            advance();
        }
        return IDL_ConstValue::string(t.kind == IDL_Tok::WStringLit, std::move(text));
    }
    case IDL_Tok::KwTrue: advance(); return IDL_ConstValue::boolean(true);
    case IDL_Tok::KwFalse: advance(); return IDL_ConstValue::boolean(false);
    case IDL_Tok::LParen: {
        advance();
        Nesting nesting(*this, t);
        bool saved = m_in_template;
        m_in_template = false;
        IDL_ConstValue v = const_exp(s);
        m_in_template = saved;
        expect(IDL_Tok::RParen);
        return v;
    }
    case IDL_Tok::Identifier:
    case IDL_Tok::ColonColon: {
        IDL_ScopedName n = scoped_name();
        AST_Decl* d = resolve(s, n);
        if (!d)
            return IDL_ConstValue();
        if (auto* c = AST_Constant::narrow_from_decl(d))
            return IDL_ConstEval::from_expression(c->constant_value());
        if (auto* e = AST_EnumVal::narrow_from_decl(d))
            return IDL_ConstValue::enumeration(e);
        const IDL_Loc& l = n.locs.back();
        IDL_Diagnostics::error(IDL_Diag::NOT_A_CONSTANT, l.file_name(), l.line, l.column, {n.text()});
        return IDL_ConstValue();
    }
    default: syntax_error("an expression");
    }
}

unsigned long IDL_Parser::positive_int(UTL_Scope* s, bool zero_allowed)
{
    IDL_Token t = cur();
    EV::ExprType saved = m_target;
    m_target = EV::EV_ulong;
    IDL_ConstValue v = const_exp(s);
    m_target = saved;
    if (!v.ok())
        return zero_allowed ? 0 : 1;
    if (v.kind != IDL_ConstValue::Integer || v.negative || (v.magnitude == 0 && !zero_allowed) ||
        v.magnitude > 0xFFFFFFFFULL) {
        error(IDL_Diag::BOUND_NOT_POSITIVE, t, {IDL_ConstEval::describe(v)});
        return zero_allowed ? 0 : 1;
    }
    return static_cast<unsigned long>(v.magnitude);
}

std::string IDL_Parser::string_literal()
{
    if (!at(IDL_Tok::StringLit))
        syntax_error("a string literal");
    std::string text;
    while (at(IDL_Tok::StringLit)) {
        text += m_lexer.literal(cur().value).text;
        advance();
    }
    return text;
}
