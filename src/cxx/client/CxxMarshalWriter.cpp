#include "CxxMarshalWriter.h"

#include "AST_Array.h"
#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "AST_Exception.h"
#include "AST_Field.h"
#include "AST_Fixed.h"
#include "AST_Interface.h"
#include "AST_PredefinedType.h"
#include "AST_Sequence.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"
#include "CxxLiteral.h"
#include "CxxPrinter.h"
#include "CxxTypeMapping.h"
#include "NameResolver.h"
#include "VE_HH_MainStartPoint_Union.h"

#include <algorithm>
#include <limits>

namespace {

const char* const out_param = "_yvp_out";
const char* const in_param = "_yvp_in";
const char* const value_param = "_yvp_v";

// Values nest deeper than this only through sequences and value types,
// whose least size does not depend on their element.
const int max_depth = 64;
// Least sizes are capped here: a smaller lower bound is still a lower bound.
const std::size_t size_cap = std::size_t(1) << 30;

using Vars = CxxPrinter::Vars;

std::size_t capped(std::size_t n) { return std::min(n, size_cap); }

// The stream's name of a primitive ("long" for write_long, read_long), or
// null for the predefined types that are no primitives.
const char* primitive(AST_Type* t)
{
    AST_PredefinedType* p = AST_PredefinedType::narrow_from_decl(CxxTypeMapping::resolved(t));
    if (!p)
        return nullptr;
    switch (p->pt()) {
    case AST_PredefinedType::PT_long: return "long";
    case AST_PredefinedType::PT_ulong: return "ulong";
    case AST_PredefinedType::PT_longlong: return "longlong";
    case AST_PredefinedType::PT_ulonglong: return "ulonglong";
    case AST_PredefinedType::PT_short: return "short";
    case AST_PredefinedType::PT_ushort: return "ushort";
    case AST_PredefinedType::PT_float: return "float";
    case AST_PredefinedType::PT_double: return "double";
    case AST_PredefinedType::PT_longdouble: return "longdouble";
    case AST_PredefinedType::PT_char: return "char";
    case AST_PredefinedType::PT_wchar: return "wchar";
    case AST_PredefinedType::PT_boolean: return "boolean";
    case AST_PredefinedType::PT_octet: return "octet";
    default: return nullptr;
    }
}

std::size_t primitive_size(AST_PredefinedType::PredefinedType pt)
{
    switch (pt) {
    case AST_PredefinedType::PT_short:
    case AST_PredefinedType::PT_ushort: return 2;
    case AST_PredefinedType::PT_long:
    case AST_PredefinedType::PT_ulong:
    case AST_PredefinedType::PT_float: return 4;
    case AST_PredefinedType::PT_longlong:
    case AST_PredefinedType::PT_ulonglong:
    case AST_PredefinedType::PT_double: return 8;
    case AST_PredefinedType::PT_longdouble: return 16;
    case AST_PredefinedType::PT_char:
    case AST_PredefinedType::PT_wchar:
    case AST_PredefinedType::PT_boolean:
    case AST_PredefinedType::PT_octet: return 1;
    case AST_PredefinedType::PT_any:
    case AST_PredefinedType::PT_typecode:
    case AST_PredefinedType::PT_principal: return 4;
    case AST_PredefinedType::PT_void: return 0;
    }
    return 0;
}

bool has_default_branch(AST_Union* u)
{
    for (AST_UnionBranch* b : u->branches())
        for (const AST_UnionLabel& l : b->labels())
            if (l.label_kind() == AST_UnionLabel::UL_default)
                return true;
    return false;
}

using MinSizes = std::unordered_map<const AST_Type*, std::size_t>;

std::size_t min_size_at(AST_Type* t, const CxxTypeMapping& map, int depth, MinSizes& known);

std::size_t fields_min_size(const std::vector<AST_Field*>& fields, const CxxTypeMapping& map, int depth,
                            MinSizes& known)
{
    std::size_t n = 0;
    for (AST_Field* f : fields)
        n = capped(n + min_size_at(f->field_type(), map, depth + 1, known));
    return n;
}

std::size_t min_size_of(AST_Type* r, const CxxTypeMapping& map, int depth, MinSizes& known);

// Each type's size is worked out once: a structure of two of the previous
// one, repeated, would otherwise cost twice as much per level.
std::size_t min_size_at(AST_Type* t, const CxxTypeMapping& map, int depth, MinSizes& known)
{
    AST_Type* r = CxxTypeMapping::resolved(t);
    if (!r || depth > max_depth)
        return 0;
    if (const auto found = known.find(r); found != known.end())
        return found->second;
    const std::size_t n = min_size_of(r, map, depth, known);
    known.emplace(r, n);
    return n;
}

std::size_t min_size_of(AST_Type* r, const CxxTypeMapping& map, int depth, MinSizes& known)
{
    switch (CxxTypeMapping::kind_of(r)) {
    case CxxTypeMapping::K_basic:
    case CxxTypeMapping::K_any:
    case CxxTypeMapping::K_typecode:
    case CxxTypeMapping::K_principal:
        return primitive_size(AST_PredefinedType::narrow_from_decl(r)->pt());
    case CxxTypeMapping::K_string: return 5; // length, then at least the NUL
    case CxxTypeMapping::K_wstring:
    case CxxTypeMapping::K_enum:
    case CxxTypeMapping::K_sequence:
    case CxxTypeMapping::K_value:
    case CxxTypeMapping::K_valuebase: return 4;
    case CxxTypeMapping::K_object: return 9; // an empty type id and no profiles
    case CxxTypeMapping::K_interface: {
        AST_Interface* i = AST_Interface::narrow_from_decl(r);
        // An abstract interface is a boolean, then a reference or a value.
        return i && i->is_abstract() ? 5 : 9;
    }
    case CxxTypeMapping::K_fixed: {
        AST_Fixed* f = AST_Fixed::narrow_from_decl(r);
        return f ? (f->digits() + 2) / 2 : 1;
    }
    case CxxTypeMapping::K_array: {
        AST_Array* a = AST_Array::narrow_from_decl(r);
        std::size_t n = min_size_at(a->base_type(), map, depth + 1, known);
        for (unsigned long dim : a->dims())
            n = dim != 0 && n > size_cap / dim ? size_cap : capped(n * dim);
        return n;
    }
    case CxxTypeMapping::K_struct:
        return fields_min_size(AST_Structure::narrow_from_decl(r)->fields(), map, depth, known);
    case CxxTypeMapping::K_exception:
        return capped(5 + fields_min_size(AST_Structure::narrow_from_decl(r)->fields(), map, depth, known));
    case CxxTypeMapping::K_union: {
        AST_Union* u = AST_Union::narrow_from_decl(r);
        const std::size_t disc = min_size_at(u->disc_type(), map, depth + 1, known);
        // A discriminator value that no label names selects no member.
        if (!has_default_branch(u) && !VE_HH_MainStartPoint_Union::unused_discriminator(u, map).empty())
            return disc;
        std::size_t least = size_cap;
        for (AST_UnionBranch* b : u->branches())
            least = std::min(least, min_size_at(b->field_type(), map, depth + 1, known));
        return capped(disc + (u->branches().empty() ? 0 : least));
    }
    default: return 0;
    }
}

} // namespace

std::size_t CxxMarshalWriter::min_size(AST_Type* t) const { return min_size_at(t, m_map, 0, m_min_sizes); }

const char* CxxMarshalWriter::primitive_name(AST_Type* t) { return primitive(t); }

bool CxxMarshalWriter::is_sequence_class(AST_Typedef* td)
{
    return td && td->base_type() && td->base_type()->node_type() == AST_Decl::NT_sequence;
}

std::string CxxMarshalWriter::marshal_type(AST_Type* t) const
{
    if (AST_Array* a = AST_Array::narrow_from_decl(t))
        return m_map.array_type(a);
    return m_map.member(t);
}

std::string CxxMarshalWriter::write_statement(AST_Type* t, const std::string& out, const std::string& value) const
{
    if (const char* op = primitive(t))
        return out + ".write_" + op + "(" + value + ");";
    if (const unsigned long bound = CxxTypeMapping::string_bound(t))
        return "YV_Cxx::write_bounded_string(" + out + ", " + value + ", " + std::to_string(bound) + "U);";
    return "YV_Cxx::Marshal<" + marshal_type(t) + ">::write(" + out + ", " + value + ");";
}

std::string CxxMarshalWriter::read_statement(AST_Type* t, const std::string& in, const std::string& value) const
{
    if (const char* op = primitive(t))
        return value + " = " + in + ".read_" + op + "();";
    if (const unsigned long bound = CxxTypeMapping::string_bound(t))
        return "YV_Cxx::read_bounded_string(" + in + ", " + value + ", " + std::to_string(bound) + "U);";
    return "YV_Cxx::Marshal<" + marshal_type(t) + ">::read(" + in + ", " + value + ");";
}

void CxxMarshalWriter::write_declaration(CxxPrinter& p, AST_Type* t, const std::string& macro) const
{
    const std::string name = m_map.full_name(t);
    if (AST_Typedef* td = AST_Typedef::narrow_from_decl(t)) {
        // The class adds nothing to the sequence it derives from.
        p.print("template <>\nstruct YV_Cxx::Marshal<$name$> : YV_Cxx::Marshal<$base$> {};\n",
                {{"name", name}, {"base", m_map.name(td->base_type())}});
        return;
    }
    if (AST_Interface* i = AST_Interface::narrow_from_decl(t)) {
        write_abstract_interface(p, i);
        return;
    }
    const bool by_value = CxxTypeMapping::kind_of(t) == CxxTypeMapping::K_enum;
    p.print("template <>\n");
    auto body = p.block("struct $macro$YV_Cxx::Marshal<$name$>\n{\n", "};\n", {{"macro", macro}, {"name", name}});
    p.print("static constexpr std::size_t min_size = $size$;\n", {{"size", std::to_string(min_size(t))}});
    p.print("static void write(YV_CDR::OutputStream& $out$, $value$ $v$);\n",
            {{"out", out_param}, {"value", by_value ? name : "const " + name + "&"}, {"v", value_param}});
    p.print("static void read(YV_CDR::InputStream& $in$, $name$& $v$);\n",
            {{"in", in_param}, {"name", name}, {"v", value_param}});
}

void CxxMarshalWriter::write_abstract_interface(CxxPrinter& p, AST_Interface* i) const
{
    // Inline: it only forwards to the runtime's encoding of either kind.
    const std::string name = m_map.full_name(i);
    const Vars vars{{"name", name}, {"out", out_param}, {"in", in_param}, {"v", value_param}};
    p.print("template <>\n");
    auto body = p.block("struct YV_Cxx::Marshal<$name$_var>\n{\n", "};\n", vars);
    p.print("static constexpr std::size_t min_size = $size$;\n", {{"size", std::to_string(min_size(i))}});
    p.print("static void write(YV_CDR::OutputStream& $out$, $name$_ptr $v$) { YV_Cxx::write_abstract($out$, $v$); }\n"
            "static $name$_ptr read_reference(YV_CDR::InputStream& $in$) { return YV_Cxx::read_abstract_as<$name$>($in$); }\n"
            "static void read(YV_CDR::InputStream& $in$, $name$_var& $v$) { $v$ = read_reference($in$); }\n",
            vars);
}

void CxxMarshalWriter::write_structure(CxxPrinter& p, AST_Structure* s) const
{
    const std::string name = m_map.full_name(s);
    const Vars vars{{"name", name}, {"out", out_param}, {"in", in_param}, {"v", value_param}};
    {
        p.print("void\n");
        auto body = p.block("YV_Cxx::Marshal<$name$>::write(YV_CDR::OutputStream& $out$, const $name$& $v$)\n{\n",
                            "}\n\n", vars);
        for (AST_Field* f : s->fields())
            p.print(write_statement(f->field_type(), out_param,
                                    std::string(value_param) + "." + m_resolver.local_name(f)) + "\n");
    }
    p.print("void\n");
    auto body = p.block("YV_Cxx::Marshal<$name$>::read(YV_CDR::InputStream& $in$, $name$& $v$)\n{\n", "}\n\n", vars);
    for (AST_Field* f : s->fields())
        p.print(read_statement(f->field_type(), in_param, std::string(value_param) + "." + m_resolver.local_name(f)) +
                "\n");
}

void CxxMarshalWriter::write_union(CxxPrinter& p, AST_Union* u) const
{
    const std::string name = m_map.full_name(u);
    const std::string disc = std::string(value_param) + "._yv_disc";
    const bool boolean = primitive(u->disc_type()) && std::string(primitive(u->disc_type())) == "boolean";
    // A switch on a boolean is one on its number.
    const std::string selector = boolean ? "static_cast<int>(" + disc + ")" : disc;
    const bool has_default = has_default_branch(u);
    // One case block per branch, its statement made by `statement`.
    auto cases = [&](auto statement) {
        auto sw = p.block("switch ($selector$) {\n", "}\n", {{"selector", selector}});
        for (AST_UnionBranch* b : u->branches()) {
            p.outdent();
            for (const AST_UnionLabel& l : b->labels()) {
                if (l.label_kind() == AST_UnionLabel::UL_default)
                    p.print("default:\n");
                else
                    p.print("case $label$:\n", {{"label", CxxLiteral::of(l.label_val(), m_map)}});
            }
            p.indent();
            p.print(statement(b->field_type(), std::string(value_param) + "._yv_" + m_resolver.local_name(b)) + "\n");
            p.print("break;\n");
        }
        if (!has_default) {
            p.outdent();
            p.print("default:\n");
            p.indent();
            p.print("break;\n");
        }
    };
    const Vars vars{{"name", name}, {"out", out_param}, {"in", in_param}, {"v", value_param}};
    {
        p.print("void\n");
        auto body = p.block("YV_Cxx::Marshal<$name$>::write(YV_CDR::OutputStream& $out$, const $name$& $v$)\n{\n",
                            "}\n\n", vars);
        p.print(write_statement(u->disc_type(), out_param, disc) + "\n");
        cases([this](AST_Type* t, const std::string& v) { return write_statement(t, out_param, v); });
    }
    p.print("void\n");
    auto body = p.block("YV_Cxx::Marshal<$name$>::read(YV_CDR::InputStream& $in$, $name$& $v$)\n{\n", "}\n\n", vars);
    p.print(read_statement(u->disc_type(), in_param, disc) + "\n");
    cases([this](AST_Type* t, const std::string& v) { return read_statement(t, in_param, v); });
}

void CxxMarshalWriter::write_enum(CxxPrinter& p, AST_Enum* e) const
{
    const std::string name = m_map.full_name(e);
    const std::size_t count = e->enumerators().size();
    const std::string last = std::to_string(count == 0 ? 0 : count - 1) + "U";
    const Vars vars{{"name", name}, {"out", out_param}, {"in", in_param}, {"v", value_param}, {"last", last}};
    {
        p.print("void\n");
        auto body = p.block("YV_Cxx::Marshal<$name$>::write(YV_CDR::OutputStream& $out$, $name$ $v$)\n{\n", "}\n\n",
                            vars);
        p.print("$out$.write_ulong(static_cast<CORBA::ULong>($v$));\n", vars);
    }
    p.print("void\n");
    auto body = p.block("YV_Cxx::Marshal<$name$>::read(YV_CDR::InputStream& $in$, $name$& $v$)\n{\n", "}\n\n", vars);
    p.print("const CORBA::ULong _yvl_n = $in$.read_ulong();\n", vars);
    p.print("if (_yvl_n > $last$)\n", vars);
    p.indent();
    p.print("YV_CDR::InputStream::fail(YV_CDR::minor_bad_enum);\n");
    p.outdent();
    p.print("$v$ = static_cast<$name$>(_yvl_n);\n", vars);
}

void CxxMarshalWriter::write_exception(CxxPrinter& p, AST_Exception* e) const
{
    const std::string name = m_map.full_name(e);
    const std::vector<AST_Field*> fields = e->fields();
    {
        p.print("void\n");
        auto body = p.block("$name$::_yv_write_members(YV_CDR::OutputStream&$out$) const\n{\n", "}\n\n",
                            {{"name", name}, {"out", fields.empty() ? std::string() : " " + std::string(out_param)}});
        for (AST_Field* f : fields)
            p.print(write_statement(f->field_type(), out_param, m_resolver.local_name(f)) + "\n");
    }
    p.print("void\n");
    auto body = p.block("$name$::_yv_read_members(YV_CDR::InputStream&$in$)\n{\n", "}\n\n",
                        {{"name", name}, {"in", fields.empty() ? std::string() : " " + std::string(in_param)}});
    for (AST_Field* f : fields)
        p.print(read_statement(f->field_type(), in_param, m_resolver.local_name(f)) + "\n");
}
