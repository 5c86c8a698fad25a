#include "VE_HH_MainStartPoint_Union.h"

#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "AST_PredefinedType.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"
#include "CxxClientText.h"
#include "CxxLiteral.h"
#include "VIS_HH_MainStartPoint.h"

#include <cstdint>
#include <set>

namespace {

const char* const disc_member = "_yv_disc";
const char* const value_param = "_yvp_value";

std::string storage_name(const CxxClientText& text, AST_UnionBranch* b) { return "_yv_" + text.local(b); }

// The label values of every branch as numbers: enumerator ordinals,
// booleans as 0 and 1, characters by their code.
std::set<std::int64_t> label_numbers(AST_Union* u)
{
    std::set<std::int64_t> used;
    for (AST_UnionBranch* b : u->branches())
        for (const AST_UnionLabel& l : b->labels()) {
            if (l.label_kind() != AST_UnionLabel::UL_label)
                continue;
            const AST_Expression& e = l.label_val();
            if (e.type() == AST_Expression::EV_enum)
                used.insert(e.enum_val() ? static_cast<std::int64_t>(e.enum_val()->ordinal()) : 0);
            else if (e.is_signed_integer())
                used.insert(e.signed_int());
            else
                used.insert(static_cast<std::int64_t>(e.unsigned_int()));
        }
    return used;
}

} // namespace

std::string VE_HH_MainStartPoint_Union::unused_discriminator(AST_Union* u, const CxxTypeMapping& map)
{
    const std::set<std::int64_t> used = label_numbers(u);
    AST_Type* disc = CxxTypeMapping::resolved(u->disc_type());
    if (AST_Enum* e = AST_Enum::narrow_from_decl(disc)) {
        for (AST_EnumVal* v : e->enumerators())
            if (!used.count(static_cast<std::int64_t>(v->ordinal())))
                return map.enumerator(v);
        return std::string();
    }
    std::int64_t n = 0;
    while (used.count(n))
        ++n;
    if (AST_PredefinedType* p = AST_PredefinedType::narrow_from_decl(disc)) {
        switch (p->pt()) {
        case AST_PredefinedType::PT_boolean: return n > 1 ? std::string() : n ? "true" : "false";
        case AST_PredefinedType::PT_char: return CxxLiteral::char_literal(static_cast<unsigned long>(n), false);
        case AST_PredefinedType::PT_wchar: return CxxLiteral::char_literal(static_cast<unsigned long>(n), true);
        default: break;
        }
    }
    return std::to_string(n);
}

std::string VE_HH_MainStartPoint_Union::selector(AST_Union* u, AST_UnionBranch* b)
{
    CxxClientText text(visitor());
    for (const AST_UnionLabel& l : b->labels())
        if (l.label_kind() == AST_UnionLabel::UL_label)
            return CxxLiteral::of(l.label_val(), text.mapping());
    const std::string unused = unused_discriminator(u, text.mapping());
    return unused.empty() ? "0" : unused;
}

long VE_HH_MainStartPoint_Union::visit(AST_Decl* d)
{
    AST_Union* u = AST_Union::narrow_from_decl(d);
    if (!u)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    const std::string name = text.local(u);
    {
        CxxPrinter p = text.printer();
        auto cls = p.block("class $name$\n{\n  public:\n", "};\n", {{"name", name}});
        VIS_HH_MainStartPoint::write_scope(os(), indent().get_indent(), u, generator());
        output_discriminator(p, u);
        for (AST_UnionBranch* b : u->branches())
            output_branch(p, u, b);
        output_storage(p, u);
    }
    if (text.first_companions(u))
        text.write_companions(u, name, u->defined_in());
    text.write_typecode_declaration(u);
    text.printer().print("\n");
    return 1;
}

void VE_HH_MainStartPoint_Union::output_discriminator(CxxPrinter& p, AST_Union* u)
{
    CxxClientText text(visitor());
    const std::string disc = text.mapping().name(u->disc_type());
    const std::vector<AST_UnionBranch*> branches = u->branches();
    const std::string initial = branches.empty() ? std::string("0") : selector(u, branches.front());
    const std::string name = text.local(u);
    const CxxPrinter::Vars vars{{"name", name}, {"m", disc_member}, {"initial", initial}, {"disc", disc}};
    p.print("$name$() : $m$($initial$) {}\n\n", vars);
    p.print("void _d($disc$ _yvp_d) { $m$ = _yvp_d; }\n", vars);
    p.print("$disc$ _d() const { return $m$; }\n\n", vars);
    bool has_default = false;
    for (AST_UnionBranch* b : branches)
        for (const AST_UnionLabel& l : b->labels())
            has_default = has_default || l.label_kind() == AST_UnionLabel::UL_default;
    const std::string unused = unused_discriminator(u, text.mapping());
    if (!has_default && !unused.empty())
        p.print("void _default() { $m$ = $unused$; }\n\n", {{"m", disc_member}, {"unused", unused}});
}

void VE_HH_MainStartPoint_Union::output_branch(CxxPrinter& p, AST_Union* u, AST_UnionBranch* b)
{
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    AST_Type* t = b->field_type();
    const std::string name = text.local(b);
    const std::string member = storage_name(text, b);
    const std::string writer = map.member_writer(t);
    const std::string select = selector(u, b);
    const std::string assign = map.assign_member(t, member, value_param);
    const std::string reader = map.member_reader(t);
    const CxxPrinter::Vars vars{{"name", name},     {"member", member}, {"writer", writer}, {"v", value_param},
                                {"m", disc_member}, {"select", select}, {"assign", assign}, {"reader", reader}};
    p.print("void $name$($writer$ $v$) { $m$ = $select$; $assign$; }\n", vars);
    p.print("$reader$ $name$() const { return $member$; }\n", vars);
    if (CxxTypeMapping::has_member_modifier(t))
        p.print("$modifier$ $name$() { return $member$; }\n",
                {{"modifier", map.member_modifier(t)}, {"name", name}, {"member", member}});
    p.print("\n");
}

void VE_HH_MainStartPoint_Union::output_storage(CxxPrinter& p, AST_Union* u)
{
    CxxClientText text(visitor());
    // The marshaling code reads and writes the storage directly.
    p.outdent();
    p.print("  private:\n");
    p.indent();
    p.print("friend struct YV_Cxx::Marshal<$full$>;\n", {{"full", text.full(u)}});
    p.print("$disc$ $m$;\n", {{"disc", text.mapping().name(u->disc_type())}, {"m", disc_member}});
    for (AST_UnionBranch* b : u->branches())
        p.print("$decl${};\n", {{"decl", text.mapping().member_declaration(b->field_type(), storage_name(text, b))}});
}
