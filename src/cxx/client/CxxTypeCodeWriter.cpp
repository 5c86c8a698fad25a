#include "CxxTypeCodeWriter.h"

#include "AST_Array.h"
#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "AST_Field.h"
#include "AST_Fixed.h"
#include "AST_Interface.h"
#include "AST_Sequence.h"
#include "AST_StateMember.h"
#include "AST_String.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"
#include "AST_Value.h"
#include "AST_ValueBox.h"
#include "CxxLiteral.h"
#include "CxxPrinter.h"
#include "CxxRuntimeNames.h"
#include "NameResolver.h"

#include <cstdint>
#include <limits>

namespace {

std::string literal(const std::string& text) { return CxxLiteral::string_literal(text, false); }

// A union label as the LongLong a type code keeps: enumerators by ordinal,
// booleans as 0 and 1, characters by their code.
std::string label_value(const AST_UnionLabel& l)
{
    if (l.label_kind() != AST_UnionLabel::UL_label)
        return "0";
    const AST_Expression& e = l.label_val();
    std::int64_t n;
    if (e.type() == AST_Expression::EV_enum)
        n = e.enum_val() ? static_cast<std::int64_t>(e.enum_val()->ordinal()) : 0;
    else if (e.is_signed_integer())
        n = e.signed_int();
    else
        n = static_cast<std::int64_t>(e.unsigned_int());
    if (n == std::numeric_limits<std::int64_t>::min())
        return "(-9223372036854775807LL - 1)";
    return std::to_string(n);
}

std::string member_entry(const std::string& name, const std::string& type, const std::string& label,
                         const std::string& visibility)
{
    return "{" + literal(name) + ", " + type + ", " + label + ", " + visibility + "}";
}

// The modifier of a value type's type code.
const char* value_modifier(AST_Value* v)
{
    if (v->is_abstract())
        return "CORBA::VM_ABSTRACT";
    if (v->is_custom())
        return "CORBA::VM_CUSTOM";
    if (v->is_truncatable())
        return "CORBA::VM_TRUNCATABLE";
    return "CORBA::VM_NONE";
}

} // namespace

std::string CxxTypeCodeWriter::unique_name(AST_Decl* d)
{
    std::string flat;
    const std::string full = m_map.full_name(d);
    for (std::size_t i = 0; i < full.size(); ++i) {
        if (full.compare(i, 2, "::") == 0) {
            flat += '_';
            ++i;
        } else {
            flat += full[i];
        }
    }
    std::string name = flat;
    for (int n = 2; !m_names.insert(name).second; ++n)
        name = flat + "_" + std::to_string(n);
    return name;
}

bool CxxTypeCodeWriter::has_declared_typecode(AST_Decl* d) const
{
    if (AST_Interface* i = AST_Interface::narrow_from_decl(d); i && !i->is_defined())
        return false; // an interface that is only ever forward declared
    return !CxxRuntimeNames::provided(d, m_resolver);
}

std::string CxxTypeCodeWriter::anonymous(CxxPrinter& p, const std::string& maker)
{
    auto found = m_anonymous.find(maker);
    if (found != m_anonymous.end())
        return found->second;
    const std::string n = std::to_string(m_anonymous.size() + m_copies.size() + 1);
    p.print("static CORBA::TypeCode _yv_tco_$n$ = $maker$;\n", {{"n", n}, {"maker", maker}});
    p.print("static const CORBA::TypeCode_ptr _yv_tc_$n$ = &_yv_tco_$n$;\n", {{"n", n}});
    return m_anonymous[maker] = "_yv_tc_" + n;
}

std::string CxxTypeCodeWriter::copy_of(CxxPrinter& p, AST_Decl* d)
{
    auto found = m_copies.find(d);
    if (found != m_copies.end())
        return found->second;
    const std::string n = std::to_string(m_anonymous.size() + m_copies.size() + 1);
    m_copies[d] = "_yv_tc_" + n; // before the members, which may refer to it
    write_object(p, d, "_yv_tco_" + n);
    p.print("static const CORBA::TypeCode_ptr _yv_tc_$n$ = &_yv_tco_$n$;\n", {{"n", n}});
    return m_copies[d];
}

std::string CxxTypeCodeWriter::address(CxxPrinter& p, AST_Type* t)
{
    if (!t)
        return "&CORBA::_tc_void";
    switch (t->node_type()) {
    case AST_Decl::NT_pre_defined:
    case AST_Decl::NT_object:
    case AST_Decl::NT_valuebase: return "&" + m_map.typecode(t);
    case AST_Decl::NT_string: {
        AST_String* s = AST_String::narrow_from_decl(t);
        if (s->max_size() == 0)
            return "&" + m_map.typecode(t);
        return "&" + anonymous(p, std::string("CORBA::TypeCode::yv_string(") +
                                      (s->is_wide() ? "CORBA::tk_wstring" : "CORBA::tk_string") + ", " +
                                      std::to_string(s->max_size()) + ")");
    }
    case AST_Decl::NT_sequence: {
        AST_Sequence* s = AST_Sequence::narrow_from_decl(t);
        const std::string element = address(p, s->base_type());
        return "&" + anonymous(p, "CORBA::TypeCode::yv_sequence(" + element + ", " + std::to_string(s->max_size()) +
                                      ")");
    }
    case AST_Decl::NT_array: {
        // long a[2][3] is an array of 2 arrays of 3.
        AST_Array* a = AST_Array::narrow_from_decl(t);
        std::string element = address(p, a->base_type());
        for (auto dim = a->dims().rbegin(); dim != a->dims().rend(); ++dim)
            element = "&" + anonymous(p, "CORBA::TypeCode::yv_array(" + element + ", " + std::to_string(*dim) + ")");
        return element;
    }
    case AST_Decl::NT_fixed: {
        AST_Fixed* f = AST_Fixed::narrow_from_decl(t);
        return "&" + anonymous(p, "CORBA::TypeCode::yv_fixed(" + std::to_string(f->digits()) + ", " +
                                      std::to_string(f->scale()) + ")");
    }
    default: {
        // A typedef keeps its own name; a forward declaration stands for its
        // definition.
        AST_Type* named = t;
        if (t->node_type() != AST_Decl::NT_typedef)
            if (AST_Type* full = CxxTypeMapping::resolved(t))
                named = full;
        if (!has_declared_typecode(named))
            return "&" + copy_of(p, named);
        return "&" + m_map.typecode(named);
    }
    }
}

void CxxTypeCodeWriter::write_definition(CxxPrinter& p, AST_Decl* d)
{
    const std::string object = "_yv_tco_" + unique_name(d);
    write_object(p, d, object);
    p.print("const CORBA::TypeCode_ptr $scope$_tc_$name$ = &$object$;\n",
            {{"scope", m_map.scope_prefix(d)}, {"name", m_resolver.local_name(d)}, {"object", object}});
}

void CxxTypeCodeWriter::write_object(CxxPrinter& p, AST_Decl* d, const std::string& object)
{
    const std::string id = literal(d->repoID());
    const std::string name = literal(d->local_name()->str());
    const std::string table = "_yv_tcm_" + object.substr(std::string("_yv_tco_").size());
    std::vector<std::string> members;
    std::string maker;
    // The member table's name and length, or a null table.
    auto table_args = [&]() {
        return members.empty() ? std::string("nullptr, 0") : table + ", " + std::to_string(members.size());
    };

    switch (d->node_type()) {
    case AST_Decl::NT_struct:
    case AST_Decl::NT_except: {
        for (AST_Field* f : AST_Structure::narrow_from_decl(d)->fields())
            members.push_back(member_entry(f->local_name()->str(), address(p, f->field_type()), "0", "0"));
        maker = "yv_struct(" + CxxTypeMapping::tc_kind(d) + ", " + id + ", " + name + ", " + table_args() + ")";
        break;
    }
    case AST_Decl::NT_union: {
        AST_Union* u = AST_Union::narrow_from_decl(d);
        long default_index = -1;
        for (AST_UnionBranch* b : u->branches()) {
            const std::string type = address(p, b->field_type());
            for (const AST_UnionLabel& l : b->labels()) {
                if (l.label_kind() == AST_UnionLabel::UL_default)
                    default_index = static_cast<long>(members.size());
                members.push_back(member_entry(b->local_name()->str(), type, label_value(l), "0"));
            }
        }
        const std::string disc = address(p, u->disc_type());
        maker = "yv_union(" + id + ", " + name + ", " + disc + ", " + table_args() + ", " +
                std::to_string(default_index) + ")";
        break;
    }
    case AST_Decl::NT_enum:
        for (AST_EnumVal* v : AST_Enum::narrow_from_decl(d)->enumerators())
            members.push_back(member_entry(v->local_name()->str(), "nullptr", "0", "0"));
        maker = "yv_enum(" + id + ", " + name + ", " + table_args() + ")";
        break;
    case AST_Decl::NT_typedef:
        maker = "yv_alias(CORBA::tk_alias, " + id + ", " + name + ", " +
                address(p, AST_Typedef::narrow_from_decl(d)->base_type()) + ")";
        break;
    case AST_Decl::NT_value_box:
        maker = "yv_alias(CORBA::tk_value_box, " + id + ", " + name + ", " +
                address(p, AST_ValueBox::narrow_from_decl(d)->boxed_type()) + ")";
        break;
    case AST_Decl::NT_value: {
        AST_Value* v = AST_Value::narrow_from_decl(d);
        std::string base = "nullptr";
        for (AST_Value* b : v->inherits())
            if (!b->is_abstract()) {
                base = address(p, b);
                break;
            }
        for (const auto& m : v->decls())
            if (AST_StateMember* s = AST_StateMember::narrow_from_decl(m.get()))
                members.push_back(member_entry(s->local_name()->str(), address(p, s->field_type()), "0",
                                               s->is_public() ? "1" : "0"));
        maker = "yv_value(" + id + ", " + name + ", " + value_modifier(v) + ", " + base + ", " + table_args() + ")";
        break;
    }
    case AST_Decl::NT_interface:
        maker = "yv_objref(" + CxxTypeMapping::tc_kind(d) + ", " + id + ", " + name + ")";
        break;
    case AST_Decl::NT_native: maker = "yv_objref(CORBA::tk_native, " + id + ", " + name + ")"; break;
    default: maker = "yv_basic(CORBA::tk_null)"; break;
    }

    if (!members.empty()) {
        auto list = p.block("static const CORBA::TypeCode::Member $table$[] = {\n", "};\n", {{"table", table}});
        for (const std::string& m : members)
            p.print("$m$,\n", {{"m", m}});
    }
    p.print("static CORBA::TypeCode $object$ = CORBA::TypeCode::$maker$;\n", {{"object", object}, {"maker", maker}});
}
