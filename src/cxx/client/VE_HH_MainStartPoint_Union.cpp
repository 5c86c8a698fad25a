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
#include <ostream>
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
    at_indent() << "class " << name << "\n";
    at_indent() << "{\n";
    at_indent() << "  public:\n";
    VIS_HH_MainStartPoint::write_scope(os(), indent().get_indent() + 1, u, generator());
    output_discriminator(u);
    for (AST_UnionBranch* b : u->branches())
        output_branch(u, b);
    output_storage(u);
    at_indent() << "};\n";
    if (text.first_companions(u))
        text.write_companions(u, name, u->defined_in());
    text.write_typecode_declaration(u);
    os() << "\n";
    return 1;
}

void VE_HH_MainStartPoint_Union::output_discriminator(AST_Union* u)
{
    CxxClientText text(visitor());
    const std::string disc = text.mapping().name(u->disc_type());
    const std::vector<AST_UnionBranch*> branches = u->branches();
    const std::string initial = branches.empty() ? std::string("0") : selector(u, branches.front());
    indent().increment();
    at_indent() << text.local(u) << "() : " << disc_member << "(" << initial << ") {}\n\n";
    at_indent() << "void _d(" << disc << " _yvp_d) { " << disc_member << " = _yvp_d; }\n";
    at_indent() << disc << " _d() const { return " << disc_member << "; }\n\n";
    bool has_default = false;
    for (AST_UnionBranch* b : branches)
        for (const AST_UnionLabel& l : b->labels())
            has_default = has_default || l.label_kind() == AST_UnionLabel::UL_default;
    const std::string unused = unused_discriminator(u, text.mapping());
    if (!has_default && !unused.empty())
        at_indent() << "void _default() { " << disc_member << " = " << unused << "; }\n\n";
    indent().decrement();
}

void VE_HH_MainStartPoint_Union::output_branch(AST_Union* u, AST_UnionBranch* b)
{
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    AST_Type* t = b->field_type();
    const std::string name = text.local(b);
    const std::string member = storage_name(text, b);
    indent().increment();
    at_indent() << "void " << name << "(" << map.member_writer(t) << " " << value_param << ") { " << disc_member
                << " = " << selector(u, b) << "; " << map.assign_member(t, member, value_param) << "; }\n";
    at_indent() << map.member_reader(t) << " " << name << "() const { return " << member << "; }\n";
    if (CxxTypeMapping::has_member_modifier(t))
        at_indent() << map.member_modifier(t) << " " << name << "() { return " << member << "; }\n";
    os() << "\n";
    indent().decrement();
}

void VE_HH_MainStartPoint_Union::output_storage(AST_Union* u)
{
    CxxClientText text(visitor());
    at_indent() << "  private:\n";
    indent().increment();
    at_indent() << text.mapping().name(u->disc_type()) << " " << disc_member << ";\n";
    for (AST_UnionBranch* b : u->branches())
        at_indent() << text.mapping().member_declaration(b->field_type(), storage_name(text, b)) << "{};\n";
    indent().decrement();
}
