#include "FrontendTestSupport.h"

#include "AST_Argument.h"
#include "AST_Array.h"
#include "AST_Attribute.h"
#include "AST_CBE_Specific.h"
#include "AST_Constant.h"
#include "AST_Enum.h"
#include "AST_EnumVal.h"
#include "AST_Exception.h"
#include "AST_Factory.h"
#include "AST_Fixed.h"
#include "AST_Interface.h"
#include "AST_InterfaceFwd.h"
#include "AST_Module.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
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
#include "AST_ValueBox.h"
#include "AST_ValueFwd.h"
#include "IDL_Frontend.h"
#include "YV_TestSupport.h"
#include "idl_msg_header.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

namespace fetest {

namespace {

Parsed run(const std::function<std::unique_ptr<IDL_GlobalData>(IDL_Frontend&)>& how,
           const std::vector<std::string>& include_dirs, const IDL_Limits& limits = IDL_Limits())
{
    IDL_FrontendOptions options;
    options.include_dirs = include_dirs;
    options.limits = limits;
    IDL_Frontend frontend(options);
    Parsed p;
    long before = idl_error_count();
    testing::internal::CaptureStderr();
    p.data = how(frontend);
    p.err = testing::internal::GetCapturedStderr();
    p.errors = idl_error_count() - before;
    return p;
}

std::string base_name(const std::string& path)
{
    std::size_t slash = path.find_last_of('/');
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string expr_text(const AST_Expression& e)
{
    std::ostringstream os;
    switch (e.type()) {
    case AST_Expression::EV_short:
    case AST_Expression::EV_long:
    case AST_Expression::EV_longlong: os << e.signed_int(); break;
    case AST_Expression::EV_ushort:
    case AST_Expression::EV_ulong:
    case AST_Expression::EV_ulonglong:
    case AST_Expression::EV_octet: os << e.unsigned_int(); break;
    case AST_Expression::EV_float:
    case AST_Expression::EV_double:
    case AST_Expression::EV_longdouble: os << static_cast<double>(e.float_val()); break;
    case AST_Expression::EV_char:
    case AST_Expression::EV_wchar: os << "char(" << e.unsigned_int() << ")"; break;
    case AST_Expression::EV_bool: os << (e.bool_val() ? "TRUE" : "FALSE"); break;
    case AST_Expression::EV_string:
    case AST_Expression::EV_wstring: os << '"' << e.text() << '"'; break;
    case AST_Expression::EV_fixed: os << e.text() << "d<" << e.fixed_digits() << "," << e.fixed_scale() << ">"; break;
    case AST_Expression::EV_enum: os << (e.enum_val() ? e.enum_val()->local_name()->str() : "?"); break;
    case AST_Expression::EV_none: os << "<none>"; break;
    }
    return os.str();
}

std::string raises_text(const UTL_ExceptList* l)
{
    std::string out;
    for (AST_Exception* e : l->items())
        out += (out.empty() ? "" : ",") + scoped(e);
    return out;
}

enum class Place { Decl, Local, Pending };

void dump_decl(std::ostream& os, AST_Decl* d, int level, Place place);

void dump_scope(std::ostream& os, UTL_Scope* s, int level)
{
    for (const auto& t : s->local_types())
        dump_decl(os, t.get(), level, Place::Local);
    for (const auto& d : s->decls())
        dump_decl(os, d.get(), level, Place::Decl);
    for (const auto& d : s->pending())
        dump_decl(os, d.get(), level, Place::Pending);
}

void dump_decl(std::ostream& os, AST_Decl* d, int level, Place place)
{
    bool local_type = place == Place::Local;
    if (d->node_type() == AST_Decl::NT_pre_defined || d->node_type() == AST_Decl::NT_object ||
        d->node_type() == AST_Decl::NT_valuebase)
        return;
    if (auto* s = AST_String::narrow_from_decl(d); s && local_type && s->max_size() == 0 && !d->file_name())
        return;  // the shared unbounded string nodes
    os << std::string(static_cast<std::size_t>(level) * 2, ' ');
    if (local_type)
        os << "local ";
    if (place == Place::Pending)
        os << "pending ";
    switch (d->node_type()) {
    case AST_Decl::NT_module: {
        auto* m = AST_Module::narrow_from_decl(d);
        os << "module " << d->local_name()->str() << (m->is_reopened() ? " reopened" : "");
        break;
    }
    case AST_Decl::NT_interface: {
        auto* i = AST_Interface::narrow_from_decl(d);
        os << "interface " << d->local_name()->str() << (i->is_abstract() ? " abstract" : "")
           << (i->is_local() ? " local" : "") << (i->is_defined() ? "" : " undefined");
        for (std::size_t k = 0; k < i->inherits().size(); ++k)
            os << (k ? "," : " : ") << scoped(i->inherits()[k]);
        break;
    }
    case AST_Decl::NT_interface_fwd:
        os << "interface_fwd " << d->local_name()->str() << " -> "
           << scoped(AST_InterfaceFwd::narrow_from_decl(d)->full_definition());
        break;
    case AST_Decl::NT_value_fwd:
        os << "value_fwd " << d->local_name()->str() << " -> " << scoped(AST_ValueFwd::narrow_from_decl(d)->full_definition());
        break;
    case AST_Decl::NT_struct_fwd:
        os << "struct_fwd " << d->local_name()->str() << " -> "
           << scoped(AST_StructFwd::narrow_from_decl(d)->full_definition());
        break;
    case AST_Decl::NT_union_fwd:
        os << "union_fwd " << d->local_name()->str() << " -> " << scoped(AST_UnionFwd::narrow_from_decl(d)->full_definition());
        break;
    case AST_Decl::NT_value: {
        auto* v = AST_Value::narrow_from_decl(d);
        os << "value " << d->local_name()->str() << (v->is_abstract() ? " abstract" : "") << (v->is_custom() ? " custom" : "")
           << (v->is_truncatable() ? " truncatable" : "");
        for (std::size_t k = 0; k < v->inherits().size(); ++k)
            os << (k ? "," : " : ") << scoped(v->inherits()[k]);
        for (std::size_t k = 0; k < v->supports().size(); ++k)
            os << (k ? "," : " supports ") << scoped(v->supports()[k]);
        break;
    }
    case AST_Decl::NT_value_box:
        os << "valuebox " << d->local_name()->str() << " " << type_text(AST_ValueBox::narrow_from_decl(d)->boxed_type());
        break;
    case AST_Decl::NT_const: {
        auto* c = AST_Constant::narrow_from_decl(d);
        os << "const " << type_text(c->constant_type()) << " " << d->local_name()->str() << " = "
           << expr_text(c->constant_value());
        break;
    }
    case AST_Decl::NT_except: os << "exception " << d->local_name()->str(); break;
    case AST_Decl::NT_attr: {
        auto* a = AST_Attribute::narrow_from_decl(d);
        os << (a->readonly() ? "readonly attribute " : "attribute ") << type_text(a->field_type()) << " "
           << d->local_name()->str();
        if (!a->get_exceptions()->empty())
            os << " getraises(" << raises_text(a->get_exceptions()) << ")";
        if (!a->set_exceptions()->empty())
            os << " setraises(" << raises_text(a->set_exceptions()) << ")";
        break;
    }
    case AST_Decl::NT_op: {
        auto* o = AST_Operation::narrow_from_decl(d);
        os << (o->is_oneway() ? "oneway op " : "op ") << type_text(o->return_type()) << " " << d->local_name()->str();
        if (!o->exceptions()->empty())
            os << " raises(" << raises_text(o->exceptions()) << ")";
        for (const std::string& c : o->context()->items())
            os << " context \"" << c << "\"";
        break;
    }
    case AST_Decl::NT_argument: {
        static const char* const dirs[] = {"in", "out", "inout"};
        auto* a = AST_Argument::narrow_from_decl(d);
        os << "arg " << dirs[a->direction()] << " " << type_text(a->field_type()) << " " << d->local_name()->str();
        break;
    }
    case AST_Decl::NT_factory: {
        auto* f = AST_Factory::narrow_from_decl(d);
        os << "factory " << d->local_name()->str();
        if (!f->exceptions()->empty())
            os << " raises(" << raises_text(f->exceptions()) << ")";
        break;
    }
    case AST_Decl::NT_state_member: {
        auto* m = AST_StateMember::narrow_from_decl(d);
        os << (m->is_public() ? "public " : "private ") << type_text(m->field_type()) << " " << d->local_name()->str();
        break;
    }
    case AST_Decl::NT_union: os << "union " << d->local_name()->str() << " switch " << type_text(AST_Union::narrow_from_decl(d)->disc_type()); break;
    case AST_Decl::NT_union_branch: {
        auto* b = AST_UnionBranch::narrow_from_decl(d);
        os << "branch";
        for (const AST_UnionLabel& l : b->labels())
            os << (l.label_kind() == AST_UnionLabel::UL_default ? " default" : " case " + expr_text(l.label_val()));
        os << ": " << type_text(b->field_type()) << " " << d->local_name()->str();
        break;
    }
    case AST_Decl::NT_struct: os << "struct " << d->local_name()->str(); break;
    case AST_Decl::NT_field: os << "field " << type_text(AST_Field::narrow_from_decl(d)->field_type()) << " " << d->local_name()->str(); break;
    case AST_Decl::NT_enum: os << "enum " << d->local_name()->str(); break;
    case AST_Decl::NT_enum_val: os << "enumerator " << d->local_name()->str() << " = " << AST_EnumVal::narrow_from_decl(d)->ordinal(); break;
    case AST_Decl::NT_typedef: os << "typedef " << type_text(AST_Typedef::narrow_from_decl(d)->base_type()) << " " << d->local_name()->str(); break;
    case AST_Decl::NT_native: os << "native " << d->local_name()->str(); break;
    case AST_Decl::NT_cbe_specific: {
        auto* c = AST_CBE_Specific::narrow_from_decl(d);
        std::string text = c->cbe_specific_string()->str();
        std::string shown;
        for (char ch : text)
            shown += ch == '\n' ? std::string("\\n") : std::string(1, ch);
        os << "cbe " << c->cbe_ident() << " \"" << shown << "\"";
        break;
    }
    default: os << type_text(AST_Type::narrow_from_decl(d)); break;
    }
    if (d->file_name())
        os << " @" << base_name(d->file_name()->str()) << ":" << d->line() << (d->in_main_file() ? "" : " included");
    if (!d->repoID().empty())
        os << " " << d->repoID();
    os << "\n";
    if (UTL_Scope* s = DeclAsScope(d))
        dump_scope(os, s, level + 1);
}

AST_Decl* find_in(UTL_Scope* s, const std::vector<std::string>& parts, std::size_t i)
{
    auto try_list = [&](const auto& list) -> AST_Decl* {
        for (const auto& d : list) {
            if (d->local_name()->str() != parts[i] || d->node_type() == AST_Decl::NT_cbe_specific)
                continue;
            if (i + 1 == parts.size()) {
                if (d->node_type() == AST_Decl::NT_interface_fwd || d->node_type() == AST_Decl::NT_struct_fwd ||
                    d->node_type() == AST_Decl::NT_union_fwd || d->node_type() == AST_Decl::NT_value_fwd)
                    continue;
                return d.get();
            }
            if (UTL_Scope* inner = DeclAsScope(d.get()))
                if (AST_Decl* r = find_in(inner, parts, i + 1))
                    return r;
        }
        return nullptr;
    };
    if (AST_Decl* r = try_list(s->decls()))
        return r;
    return try_list(s->pending());
}

} // namespace

Parsed parse(const std::string& text, const std::string& name,
             const std::vector<std::pair<std::string, std::string>>& files)
{
    std::vector<std::string> dirs;
    std::string dir;
    if (!files.empty()) {
        dir = yvtest::make_temp_dir("fe");
        for (const auto& f : files)
            yvtest::write_file(dir + "/" + f.first, f.second);
        dirs.push_back(dir);
    }
    Parsed p = run([&](IDL_Frontend& fe) { return fe.parse_text(name, text); }, dirs);
    if (!dir.empty())
        std::filesystem::remove_all(dir);
    return p;
}

Parsed parse_file(const std::string& path, const std::vector<std::string>& include_dirs)
{
    return run([&](IDL_Frontend& fe) { return fe.parse_file(path); }, include_dirs);
}

Parsed parse_limited(const std::string& text, const IDL_Limits& limits, const std::string& include_dir)
{
    std::vector<std::string> dirs;
    if (!include_dir.empty())
        dirs.push_back(include_dir);
    return run([&](IDL_Frontend& fe) { return fe.parse_text("main.idl", text); }, dirs, limits);
}

std::string scoped(AST_Decl* d)
{
    std::string out;
    for (AST_Decl* cur = d; cur && cur->node_type() != AST_Decl::NT_root; cur = ScopeAsDecl(cur->defined_in()))
        out = cur->local_name()->str() + (out.empty() ? "" : "::" + out);
    return out;
}

std::string type_text(AST_Type* t)
{
    if (!t)
        return "<null>";
    if (auto* s = AST_String::narrow_from_decl(t)) {
        std::string n = s->is_wide() ? "wstring" : "string";
        if (s->max_size())
            n += "<" + std::to_string(s->max_size()) + ">";
        return n + (s->anonymous() ? "(anon)" : "");
    }
    if (auto* q = AST_Sequence::narrow_from_decl(t))
        return "sequence<" + type_text(q->base_type()) + (q->max_size() ? "," + std::to_string(q->max_size()) : "") +
               ">" + (q->is_recursive() ? "(recursive)" : "");
    if (auto* a = AST_Array::narrow_from_decl(t)) {
        std::string n = type_text(a->base_type());
        for (unsigned long dim : a->dims())
            n += "[" + std::to_string(dim) + "]";
        return n;
    }
    if (auto* f = AST_Fixed::narrow_from_decl(t))
        return "fixed<" + std::to_string(f->digits()) + "," + std::to_string(f->scale()) + ">";
    if (t->node_type() == AST_Decl::NT_pre_defined || t->node_type() == AST_Decl::NT_object ||
        t->node_type() == AST_Decl::NT_valuebase)
        return t->local_name()->str();
    return scoped(t);
}

std::string dump(IDL_GlobalData& data)
{
    std::ostringstream os;
    os << "file " << data.stripped_filename()->str() << "\n";
    for (const IDL_IncludedFile& f : data.included_files())
        os << "include " << f.name.str() << " flag " << f.flag << "\n";
    dump_scope(os, data.root(), 0);
    return os.str();
}

AST_Decl* find(IDL_GlobalData& data, const std::string& scoped_name)
{
    std::vector<std::string> parts;
    std::size_t i = 0;
    while (i <= scoped_name.size()) {
        std::size_t end = scoped_name.find("::", i);
        parts.push_back(scoped_name.substr(i, end == std::string::npos ? std::string::npos : end - i));
        if (end == std::string::npos)
            break;
        i = end + 2;
    }
    return find_in(data.root(), parts, 0);
}

} // namespace fetest
