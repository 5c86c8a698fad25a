#include "IDL_Checks.h"

#include "AST_Argument.h"
#include "AST_Array.h"
#include "AST_Field.h"
#include "AST_Interface.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_Sequence.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"
#include "AST_Value.h"
#include "IDL_Diagnostics.h"
#include "IDL_Names.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace {

void error(IDL_Diag id, const IDL_Loc& loc, std::initializer_list<std::string> args)
{
    IDL_Diagnostics::error(id, loc.file_name(), loc.line, loc.column, args);
}

std::vector<UTL_Scope*> direct_bases(UTL_Scope* s)
{
    std::vector<UTL_Scope*> out;
    if (auto* i = dynamic_cast<AST_Interface*>(s)) {
        for (AST_Interface* b : i->inherits())
            out.push_back(b);
    } else if (auto* v = dynamic_cast<AST_Value*>(s)) {
        for (AST_Value* b : v->inherits())
            out.push_back(b);
        for (AST_Interface* b : v->supports())
            out.push_back(b);
    }
    return out;
}

// Depth-first, bases in declaration order, each once; iterative, so a
// long inheritance chain cannot exhaust the stack.
void walk(UTL_Scope* s, std::vector<UTL_Scope*>& out, std::unordered_set<UTL_Scope*>& seen)
{
    std::vector<UTL_Scope*> stack;
    auto push_bases = [&](UTL_Scope* of) {
        std::vector<UTL_Scope*> bases = direct_bases(of);
        stack.insert(stack.end(), bases.rbegin(), bases.rend());
    };
    push_bases(s);
    while (!stack.empty()) {
        UTL_Scope* b = stack.back();
        stack.pop_back();
        if (!seen.insert(b).second)
            continue;
        out.push_back(b);
        push_bases(b);
    }
}

bool is_member_kind(const AST_Decl* d)
{
    return d->node_type() == AST_Decl::NT_op || d->node_type() == AST_Decl::NT_attr;
}

std::string fold(const std::string& s)
{
    std::string out(s);
    for (char& c : out)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return out;
}

std::string name_of(UTL_Scope* s) { return ScopeAsDecl(s)->local_name()->str(); }

} // namespace

std::vector<UTL_Scope*> IDL_Checks::ancestors(UTL_Scope* s)
{
    std::vector<UTL_Scope*> out;
    std::unordered_set<UTL_Scope*> seen{s};
    walk(s, out, seen);
    return out;
}

std::size_t IDL_Checks::inheritance_cost(UTL_Scope* s, std::size_t cap)
{
    std::size_t cost = 0;
    std::unordered_set<UTL_Scope*> seen{s};
    std::vector<UTL_Scope*> stack = direct_bases(s);
    cost += stack.size();
    while (!stack.empty() && cost < cap) {
        UTL_Scope* b = stack.back();
        stack.pop_back();
        if (!seen.insert(b).second)
            continue;
        const std::vector<UTL_Scope*> bases = direct_bases(b);
        cost += 1 + b->decls().size() + bases.size();
        stack.insert(stack.end(), bases.begin(), bases.end());
    }
    return std::min(cost, cap);
}

void IDL_Checks::inherited_clashes(const std::vector<UTL_Scope*>& ancestors, const IDL_Loc& loc)
{
    // Folded member name -> the ancestor that declares it; std::map keeps
    // the order of reports independent of hashing.
    std::map<std::string, UTL_Scope*> seen;
    for (UTL_Scope* a : ancestors) {
        for (const auto& d : a->decls()) {
            if (!is_member_kind(d.get()))
                continue;
            auto ins = seen.emplace(fold(d->local_name()->str()), a);
            if (!ins.second && ins.first->second != a)
                error(IDL_Diag::INHERIT_CLASH, loc,
                      {d->local_name()->str(), name_of(ins.first->second), name_of(a)});
        }
    }
}

bool IDL_Checks::member_against_bases(UTL_Scope* s, const std::string& name, IDL_Names& names, const IDL_Loc& loc)
{
    AST_Decl* d = names.inherited_member(s, name);
    if (!d)
        return true;
    error(IDL_Diag::MEMBER_CLASH_INHERITED, loc, {name, name_of(d->defined_in())});
    return false;
}

void IDL_Checks::oneway(AST_Operation* op, const IDL_Loc& loc)
{
    if (!op->is_oneway())
        return;
    const std::string& name = op->local_name()->str();
    auto* pt = AST_PredefinedType::narrow_from_decl(op->return_type());
    if (!pt || pt->pt() != AST_PredefinedType::PT_void)
        error(IDL_Diag::ONEWAY_RESULT, loc, {name});
    for (const auto& d : op->decls()) {
        auto* arg = AST_Argument::narrow_from_decl(d.get());
        if (arg && arg->direction() != AST_Argument::dir_IN) {
            error(IDL_Diag::ONEWAY_OUT, loc, {name});
            break;
        }
    }
    if (!op->exceptions()->empty())
        error(IDL_Diag::ONEWAY_RAISES, loc, {name});
}

AST_Decl* IDL_Checks::incomplete(AST_Type* t)
{
    for (int guard = 0; t && guard < 10000; ++guard) {
        if (auto* td = AST_Typedef::narrow_from_decl(t))
            t = td->base_type();
        else if (auto* arr = AST_Array::narrow_from_decl(t))
            t = arr->base_type();
        else
            break;
    }
    if (auto* s = AST_Structure::narrow_from_decl(t))
        return s->is_defined() ? nullptr : s;
    if (auto* u = AST_Union::narrow_from_decl(t))
        return u->is_defined() ? nullptr : u;
    return nullptr;
}

bool IDL_Checks::complete_by_value(AST_Type* t, const IDL_Loc& loc)
{
    if (AST_Decl* d = incomplete(t)) {
        error(IDL_Diag::INCOMPLETE_BY_VALUE, loc, {d->local_name()->str()});
        return false;
    }
    return true;
}

AST_Interface* IDL_Checks::local_type(AST_Type* t, std::unordered_map<const AST_Type*, AST_Interface*>& known)
{
    auto it = known.find(t);
    if (it != known.end())
        return it->second;
    // Iterative, each type once: recursive structures hold themselves
    // through sequences.
    AST_Interface* found = nullptr;
    std::vector<AST_Type*> todo{t};
    std::unordered_set<const AST_Type*> seen;
    while (!todo.empty() && !found) {
        AST_Type* cur = todo.back();
        todo.pop_back();
        if (!cur || !seen.insert(cur).second)
            continue;
        if (auto* td = AST_Typedef::narrow_from_decl(cur))
            todo.push_back(td->base_type());
        else if (auto* seq = AST_Sequence::narrow_from_decl(cur))
            todo.push_back(seq->base_type());
        else if (auto* arr = AST_Array::narrow_from_decl(cur))
            todo.push_back(arr->base_type());
        else if (auto* i = AST_Interface::narrow_from_decl(cur))
            found = i->is_local() ? i : nullptr;
        else if (auto* st = AST_Structure::narrow_from_decl(cur))
            for (AST_Field* f : st->fields())
                todo.push_back(f->field_type());
        else if (auto* u = AST_Union::narrow_from_decl(cur))
            for (AST_UnionBranch* b : u->branches())
                todo.push_back(b->field_type());
    }
    known.emplace(t, found);
    return found;
}
