#include "CxxValueWriter.h"

#include "AST_Factory.h"
#include "AST_Interface.h"
#include "AST_StateMember.h"
#include "AST_Structure.h"
#include "AST_Union.h"
#include "AST_UnionBranch.h"
#include "AST_Value.h"
#include "AST_ValueBox.h"
#include "CxxLiteral.h"
#include "CxxMarshalWriter.h"
#include "CxxPrinter.h"
#include "CxxTypeMapping.h"
#include "NameResolver.h"
#include "VE_HH_MainStartPoint_Union.h"

#include <set>

namespace {

const char* const out_param = "_yvp_out";
const char* const in_param = "_yvp_in";

bool has_operations(AST_Value* v, std::set<AST_Value*>& seen)
{
    if (!seen.insert(v).second)
        return false;
    if (!v->supports().empty())
        return true;
    for (const auto& member : v->decls()) {
        const AST_Decl::NodeType t = member->node_type();
        if (t == AST_Decl::NT_op || t == AST_Decl::NT_attr)
            return true;
    }
    for (AST_Value* base : v->inherits())
        if (base && has_operations(base, seen))
            return true;
    return false;
}

// Kinds whose member type is a _var that setters take as a pointer.
bool set_through_in(AST_Type* t)
{
    switch (CxxTypeMapping::kind_of(t)) {
    case CxxTypeMapping::K_string:
    case CxxTypeMapping::K_wstring:
    case CxxTypeMapping::K_typecode:
    case CxxTypeMapping::K_principal:
    case CxxTypeMapping::K_object:
    case CxxTypeMapping::K_interface:
    case CxxTypeMapping::K_value:
    case CxxTypeMapping::K_valuebase: return true;
    default: return false;
    }
}

std::string id_literal(AST_Decl* d) { return CxxLiteral::string_literal(d->repoID(), false); }

} // namespace

bool CxxValueWriter::marshals_state(AST_Value* v) { return v && !v->is_abstract() && !v->is_custom(); }

bool CxxValueWriter::has_default_factory(AST_Value* v)
{
    if (!marshals_state(v))
        return false;
    for (const auto& member : v->decls())
        if (member->node_type() == AST_Decl::NT_factory)
            return false;
    std::set<AST_Value*> seen;
    return !has_operations(v, seen);
}

AST_Value* CxxValueWriter::concrete_base(AST_Value* v)
{
    if (v->inherits().empty())
        return nullptr;
    AST_Value* base = v->inherits().front();
    return base && !base->is_abstract() ? base : nullptr;
}

std::vector<AST_StateMember*> CxxValueWriter::state_members(AST_Value* v)
{
    std::vector<AST_StateMember*> found;
    for (const auto& member : v->decls())
        if (AST_StateMember* m = AST_StateMember::narrow_from_decl(member.get()))
            found.push_back(m);
    return found;
}

std::string CxxValueWriter::array_of_slice(AST_StateMember* m, const std::string& slice, bool is_const) const
{
    return "*reinterpret_cast<std::add_pointer_t<" + std::string(is_const ? "const " : "") +
           m_map.name(m->field_type()) + ">>(" + slice + ")";
}

void CxxValueWriter::write_class_members(CxxPrinter& p, AST_Value* v) const
{
    if (v && !v->is_abstract() && v->is_custom()) {
        // The state is what the program's marshal() writes, chunked; these
        // name CustomMarshal's over those a concrete base may have.
        p.print("static const char* _yv_value_id() { return $id$; }\n", {{"id", id_literal(v)}});
        p.print("CORBA::ValueBase* _copy_value() override { return YV_Cxx::copy_value(this); }\n");
        p.print("const char* const* _yv_type_ids(CORBA::ULong& _yvp_count) const override;\n");
        p.print("CORBA::Boolean _yv_is_chunked() const override { return true; }\n");
        p.print("void _yv_marshal_state(YV_CDR::OutputStream& _yvp_out) const override "
                "{ CORBA::CustomMarshal::_yv_marshal_state(_yvp_out); }\n");
        p.print("void _yv_unmarshal_state(YV_CDR::InputStream& _yvp_in) override "
                "{ CORBA::CustomMarshal::_yv_unmarshal_state(_yvp_in); }\n");
        return;
    }
    if (!marshals_state(v))
        return;
    p.print("static const char* _yv_value_id() { return $id$; }\n", {{"id", id_literal(v)}});
    p.print("CORBA::ValueBase* _copy_value() override { return YV_Cxx::copy_value(this); }\n");
    p.print("const char* const* _yv_type_ids(CORBA::ULong& _yvp_count) const override;\n");
    if (v->is_truncatable())
        p.print("CORBA::Boolean _yv_is_chunked() const override { return true; }\n");
    p.print("void _yv_marshal_state(YV_CDR::OutputStream& _yvp_out) const override;\n");
    p.print("void _yv_unmarshal_state(YV_CDR::InputStream& _yvp_in) override;\n");
}

void CxxValueWriter::write_box_accessors(CxxPrinter& p, AST_ValueBox* b) const
{
    AST_Type* t = b->boxed_type();
    const bool array = CxxTypeMapping::kind_of(t) == CxxTypeMapping::K_array;
    // (An array is handed out as a pointer to its slice.)
    const std::string in = array ? m_map.member_reader(t) : m_map.param(t, CxxTypeMapping::M_in);
    std::string inout = m_map.param(t, CxxTypeMapping::M_inout);
    std::string out = m_map.param(t, CxxTypeMapping::M_out);
    std::string in_body = "_yv_value";
    std::string inout_body = "_yv_value";
    switch (CxxTypeMapping::kind_of(t)) {
    case CxxTypeMapping::K_string:
    case CxxTypeMapping::K_wstring:
    case CxxTypeMapping::K_typecode:
    case CxxTypeMapping::K_object:
    case CxxTypeMapping::K_interface:
        in_body = "_yv_value.in()";
        inout_body = "_yv_value.inout()";
        break;
    case CxxTypeMapping::K_array:
        inout = out = m_map.member_modifier(t);
        break;
    case CxxTypeMapping::K_struct:
    case CxxTypeMapping::K_union:
    case CxxTypeMapping::K_sequence:
    case CxxTypeMapping::K_any:
    case CxxTypeMapping::K_fixed:
        // The box holds the value itself, which an out parameter refers to.
        out = inout;
        break;
    default: break;
    }
    const CxxPrinter::Vars vars{
        {"in", in}, {"inout", inout}, {"out", out}, {"in_body", in_body}, {"inout_body", inout_body}};
    p.print("$in$ _boxed_in() const { return $in_body$; }\n", vars);
    p.print("$inout$ _boxed_inout() { return $inout_body$; }\n", vars);
    p.print("$out$ _boxed_out() { return _yv_value; }\n", vars);

    switch (CxxTypeMapping::kind_of(t)) {
    case CxxTypeMapping::K_string:
    case CxxTypeMapping::K_wstring: {
        // A string box also adopts strings and indexes characters.
        const char* ch = CxxTypeMapping::kind_of(t) == CxxTypeMapping::K_string ? "char" : "CORBA::WChar";
        const std::string full = m_map.full_name(b);
        const CxxPrinter::Vars svars{{"ch", ch}, {"full", full}, {"name", m_resolver.local_name(b)}};
        p.print("$name$($ch$* _yvp_value) { _yv_value = _yvp_value; }\n", svars);
        p.print("$full$& operator=($ch$* _yvp_value) { _yv_value = _yvp_value; return *this; }\n", svars);
        p.print("void _value($ch$* _yvp_value) { _yv_value = _yvp_value; }\n", svars);
        p.print("$ch$& operator[](CORBA::ULong _yvp_index) { return _yv_value[_yvp_index]; }\n", svars);
        p.print("$ch$ operator[](CORBA::ULong _yvp_index) const { return _yv_value[_yvp_index]; }\n", svars);
        break;
    }
    case CxxTypeMapping::K_sequence:
        p.print("CORBA::ULong length() const { return _yv_value.length(); }\n");
        p.print("void length(CORBA::ULong _yvp_length) { _yv_value.length(_yvp_length); }\n");
        p.print("decltype(auto) operator[](CORBA::ULong _yvp_index) { return _yv_value[_yvp_index]; }\n");
        p.print("decltype(auto) operator[](CORBA::ULong _yvp_index) const { return _yv_value[_yvp_index]; }\n");
        break;
    case CxxTypeMapping::K_struct:
        // The structure's members through accessors of their own.
        for (AST_Field* f : AST_Structure::narrow_from_decl(CxxTypeMapping::resolved(t))->fields()) {
            const std::string name = m_resolver.local_name(f);
            write_accessors(p, f->field_type(), name, "_yv_value." + name, "");
        }
        break;
    case CxxTypeMapping::K_union:
        write_union_box_accessors(p, AST_Union::narrow_from_decl(CxxTypeMapping::resolved(t)));
        break;
    default: break;
    }
    p.print("\n");
}

void CxxValueWriter::write_union_box_accessors(CxxPrinter& p, AST_Union* u) const
{
    // The union's discriminator and branches, each forwarded to the value
    // held.
    const std::string disc = m_map.name(u->disc_type());
    p.print("void _d($disc$ _yvp_d) { _yv_value._d(_yvp_d); }\n"
            "$disc$ _d() const { return _yv_value._d(); }\n",
            {{"disc", disc}});
    bool has_default = false;
    for (AST_UnionBranch* b : u->branches())
        for (const AST_UnionLabel& l : b->labels())
            has_default = has_default || l.label_kind() == AST_UnionLabel::UL_default;
    if (!has_default && !VE_HH_MainStartPoint_Union::unused_discriminator(u, m_map).empty())
        p.print("void _default() { _yv_value._default(); }\n");
    for (AST_UnionBranch* b : u->branches()) {
        AST_Type* t = b->field_type();
        // The printer's values refer to these strings.
        const std::string name = m_resolver.local_name(b);
        const std::string writer = m_map.member_writer(t);
        const std::string reader = m_map.member_reader(t);
        const CxxPrinter::Vars vars{{"name", name}, {"writer", writer}, {"reader", reader}};
        p.print("void $name$($writer$ _yvp_value) { _yv_value.$name$(_yvp_value); }\n"
                "$reader$ $name$() const { return _yv_value.$name$(); }\n",
                vars);
        if (CxxTypeMapping::has_member_modifier(t)) {
            const std::string modifier = m_map.member_modifier(t);
            p.print("$modifier$ $name$() { return _yv_value.$name$(); }\n", {{"modifier", modifier}, {"name", name}});
        }
    }
}

void CxxValueWriter::write_box_members(CxxPrinter& p, AST_ValueBox* b) const
{
    p.print("static const char* _yv_value_id() { return $id$; }\n", {{"id", id_literal(b)}});
    p.print("static $full$* _yv_create_for_unmarshal() { return new $full$; }\n", {{"full", m_map.full_name(b)}});
    p.print("const char* const* _yv_type_ids(CORBA::ULong& _yvp_count) const override;\n");
    p.print("void _yv_marshal_state(YV_CDR::OutputStream& _yvp_out) const override;\n");
    p.print("void _yv_unmarshal_state(YV_CDR::InputStream& _yvp_in) override;\n");
}

void CxxValueWriter::collect_constructor_members(AST_Value* v, std::vector<AST_StateMember*>& members) const
{
    if (AST_Value* base = concrete_base(v))
        collect_constructor_members(base, members);
    for (AST_StateMember* m : state_members(v))
        members.push_back(m);
}

void CxxValueWriter::write_accessors(CxxPrinter& p, AST_Type* t, const std::string& name, const std::string& storage,
                                     const char* tail) const
{
    const std::string assign = m_map.assign_member(t, storage, "_yvp_value");
    const std::string writer = m_map.member_writer(t);
    const std::string reader = m_map.member_reader(t);
    const CxxPrinter::Vars vars{{"name", name},     {"storage", storage}, {"assign", assign},
                                {"writer", writer}, {"reader", reader},   {"tail", tail}};
    p.print("void $name$($writer$ _yvp_value)$tail$ { $assign$; }\n", vars);
    p.print("$reader$ $name$() const$tail$ { return $storage$; }\n", vars);
    if (CxxTypeMapping::has_member_modifier(t))
        p.print("$modifier$ $name$()$tail$ { return $storage$; }\n",
                {{"modifier", m_map.member_modifier(t)}, {"name", name}, {"storage", storage}, {"tail", tail}});
}

void CxxValueWriter::write_obv_accessors(CxxPrinter& p, AST_StateMember* m) const
{
    const std::string name = m_resolver.local_name(m);
    write_accessors(p, m->field_type(), name, "_yv_" + name, " override");
}

std::string CxxValueWriter::obv_name(AST_Value* v) const
{
    // OBV_ before the first component of the scoped name.
    std::string scoped = m_map.full_name(v);
    scoped.insert(scoped.compare(0, 2, "::") == 0 ? 2 : 0, "OBV_");
    return scoped;
}

void CxxValueWriter::write_obv_class(CxxPrinter& p, AST_Value* v) const
{
    if (v->is_abstract())
        return;
    // The modules around the value, outermost first.
    std::vector<std::string> modules;
    for (AST_Decl* s = ScopeAsDecl(v->defined_in()); s && s->node_type() != AST_Decl::NT_root;
         s = ScopeAsDecl(s->defined_in()))
        modules.insert(modules.begin(), m_resolver.local_name(s));
    std::vector<CxxPrinter::Block> blocks;
    for (std::size_t i = 0; i < modules.size(); ++i)
        blocks.push_back(p.block("namespace $prefix$$name$\n{\n", "}\n",
                                 {{"prefix", i == 0 ? "OBV_" : ""}, {"name", modules[i]}}));
    const std::string local = m_resolver.local_name(v);
    const std::string name = modules.empty() ? "OBV_" + local : local;
    const std::string full = m_map.full_name(v);
    AST_Value* base = concrete_base(v);
    const std::string obv_base = base ? obv_name(base) : std::string("CORBA::DefaultValueRefCountBase");
    const CxxPrinter::Vars vars{{"name", name}, {"full", full}, {"base", obv_base}};
    p.print("class $name$ :\n    public virtual $full$,\n    public virtual $base$\n", vars);
    auto cls = p.block("{\n  public:\n", "};\n");
    p.print("$name$() {}\n", vars);
    std::vector<AST_StateMember*> all;
    collect_constructor_members(v, all);
    if (!all.empty()) {
        std::vector<std::string> params;
        for (AST_StateMember* m : all)
            params.push_back(m_map.member_writer(m->field_type()) + " " + m_resolver.local_name(m));
        p.member_of("", name, params, "\n");
        auto body = p.block("{\n", "}\n");
        for (AST_StateMember* m : all)
            p.print("this->$name$($name$);\n", {{"name", m_resolver.local_name(m)}});
    }
    p.print("\n");
    const std::vector<AST_StateMember*> own = state_members(v);
    for (AST_StateMember* m : own)
        if (m->is_public())
            write_obv_accessors(p, m);
    p.outdent();
    p.print("\n  protected:\n");
    p.indent();
    p.print("~$name$() override {}\n", vars);
    for (AST_StateMember* m : own)
        if (!m->is_public())
            write_obv_accessors(p, m);
    if (!own.empty()) {
        p.outdent();
        p.print("\n  private:\n");
        p.indent();
        for (AST_StateMember* m : own)
            p.print("$decl${};\n", {{"decl", m_map.member_declaration(m->field_type(), "_yv_" + m_resolver.local_name(m))}});
    }
}

void CxxValueWriter::write_type_ids(CxxPrinter& p, const std::string& full, const std::vector<std::string>& ids) const
{
    p.print("const char* const*\n");
    auto body = p.block("$full$::_yv_type_ids(CORBA::ULong& _yvp_count) const\n{\n", "}\n\n", {{"full", full}});
    p.print("static const char* const _yvl_ids[] = {");
    p.list(ids, ", ", [&](const std::string& id) { p.print(id); });
    p.print("};\n");
    p.print("_yvp_count = $n$;\n", {{"n", CxxPrinter::Num(static_cast<long long>(ids.size()))}});
    p.print("return _yvl_ids;\n");
}

void CxxValueWriter::write_definitions(CxxPrinter& p, AST_Value* v) const
{
    if (v && !v->is_abstract() && v->is_custom()) {
        write_type_ids(p, m_map.full_name(v), {id_literal(v)});
        return;
    }
    if (!marshals_state(v))
        return;
    const std::string full = m_map.full_name(v);
    // Its own id, then the ids of the bases it may be truncated to.
    std::vector<std::string> ids{id_literal(v)};
    for (AST_Value* t = v; t->is_truncatable() && !t->inherits().empty() && t->inherits().front();
         t = t->inherits().front())
        ids.push_back(id_literal(t->inherits().front()));
    write_type_ids(p, full, ids);

    AST_Value* base = concrete_base(v);
    const std::vector<AST_StateMember*> members = state_members(v);
    const bool empty = !base && members.empty();
    const std::string base_name = base ? m_map.full_name(base) : std::string();
    const CxxPrinter::Vars vars{{"full", full},
                                {"base", base_name},
                                {"out", empty ? "" : " _yvp_out"},
                                {"in", empty ? "" : " _yvp_in"}};
    {
        p.print("void\n");
        auto body = p.block("$full$::_yv_marshal_state(YV_CDR::OutputStream&$out$) const\n{\n", "}\n\n", vars);
        if (base) {
            p.print("$base$::_yv_marshal_state(_yvp_out);\n", vars);
            p.print("YV_Cxx::end_base_state(_yvp_out);\n");
        }
        for (AST_StateMember* m : members) {
            AST_Type* t = m->field_type();
            std::string value = m_resolver.local_name(m) + "()";
            if (CxxTypeMapping::kind_of(t) == CxxTypeMapping::K_array)
                value = array_of_slice(m, value, true);
            p.print(m_marshal.write_statement(t, out_param, value) + "\n");
        }
    }
    write_unmarshal_state(p, v, vars);
    if (!has_default_factory(v))
        return;
    p.print("CORBA::ValueBase*\n");
    {
        auto body = p.block("$full$_init::create_for_unmarshal()\n{\n", "}\n\n", vars);
        p.print("return new $obv$;\n", {{"obv", obv_name(v)}});
    }
    write_factory_registration(p, full, full + "_init");
}

void CxxValueWriter::write_factory_registration(CxxPrinter& p, const std::string& full, const std::string& factory) const
{
    std::string object = "_yv_factory_" + full;
    for (char& c : object)
        if (c == ':')
            c = '_';
    p.print("static const YV_Cxx::DefaultValueFactory<$factory$> $object$($full$::_yv_value_id());\n\n",
            {{"factory", factory}, {"full", full}, {"object", object}});
}

void CxxValueWriter::write_unmarshal_state(CxxPrinter& p, AST_Value* v, CxxPrinter::Vars vars) const
{
    AST_Value* base = concrete_base(v);
    p.print("void\n");
    auto body = p.block("$full$::_yv_unmarshal_state(YV_CDR::InputStream&$in$)\n{\n", "}\n\n", vars);
    if (base) {
        p.print("$base$::_yv_unmarshal_state(_yvp_in);\n", vars);
        p.print("YV_Cxx::end_base_state(_yvp_in);\n");
    }
    for (AST_StateMember* m : state_members(v)) {
        AST_Type* t = m->field_type();
        const std::string name = m_resolver.local_name(m);
        if (const char* op = CxxMarshalWriter::primitive_name(t)) {
            p.print("$name$(_yvp_in.read_$op$());\n", {{"name", name}, {"op", op}});
        } else if (CxxTypeMapping::has_member_modifier(t)) {
            std::string value = name + "()";
            if (CxxTypeMapping::kind_of(t) == CxxTypeMapping::K_array)
                value = array_of_slice(m, value, false);
            p.print(m_marshal.read_statement(t, in_param, value) + "\n");
        } else {
            // Read into a variable of the member type, then set.
            auto scope = p.block("{\n", "}\n");
            p.print("$decl${};\n", {{"decl", m_map.member_declaration(t, "_yvl_v")}});
            p.print(m_marshal.read_statement(t, in_param, "_yvl_v") + "\n");
            p.print("$name$(_yvl_v$in$);\n", {{"name", name}, {"in", set_through_in(t) ? ".in()" : ""}});
        }
    }
}

void CxxValueWriter::write_box_definitions(CxxPrinter& p, AST_ValueBox* b) const
{
    const std::string full = m_map.full_name(b);
    write_type_ids(p, full, {id_literal(b)});
    AST_Type* t = b->boxed_type();
    {
        p.print("void\n");
        auto body =
            p.block("$full$::_yv_marshal_state(YV_CDR::OutputStream& _yvp_out) const\n{\n", "}\n\n", {{"full", full}});
        p.print(m_marshal.write_statement(t, out_param, "_yv_value") + "\n");
    }
    {
        p.print("void\n");
        auto body =
            p.block("$full$::_yv_unmarshal_state(YV_CDR::InputStream& _yvp_in)\n{\n", "}\n\n", {{"full", full}});
        p.print(m_marshal.read_statement(t, in_param, "_yv_value") + "\n");
    }
    write_factory_registration(p, full, "YV_Cxx::BoxFactory<" + full + ">");
}
