#include "CxxAnyOperatorWriter.h"

#include "AST_Typedef.h"
#include "CxxMarshalWriter.h"
#include "CxxPrinter.h"
#include "CxxTypeMapping.h"
#include "NameResolver.h"

#include <vector>

namespace {

// One operator: its declaration without ";" and the runtime call of its body.
struct Operator {
    std::string declaration;
    std::string call;
};

} // namespace

bool CxxAnyOperatorWriter::has_operators(AST_Decl* d)
{
    switch (d->node_type()) {
    case AST_Decl::NT_struct:
    case AST_Decl::NT_union:
    case AST_Decl::NT_except:
    case AST_Decl::NT_enum:
    case AST_Decl::NT_interface:
    case AST_Decl::NT_value:
    case AST_Decl::NT_value_box: return true;
    case AST_Decl::NT_typedef: {
        AST_Typedef* td = AST_Typedef::narrow_from_decl(d);
        return CxxMarshalWriter::is_sequence_class(td) || CxxTypeMapping::kind_of(td) == CxxTypeMapping::K_array;
    }
    default: return false;
    }
}

void CxxAnyOperatorWriter::write_declarations(CxxPrinter& p, AST_Decl* d, const std::string& macro) const
{
    write(p, d, macro, false);
}

void CxxAnyOperatorWriter::write_definitions(CxxPrinter& p, AST_Decl* d) const { write(p, d, "", true); }

void CxxAnyOperatorWriter::write_instantiations(CxxPrinter& p, AST_Decl* d, bool definitions) const
{
    if (!has_operators(d))
        return;
    const std::string t = m_map.full_name(d);
    std::string streamable;
    std::string slot = t + "*";
    switch (d->node_type()) {
    case AST_Decl::NT_enum:
        streamable = "YV_Cxx::BasicStreamable<" + t + ">";
        slot = t;
        break;
    case AST_Decl::NT_interface: streamable = "YV_Cxx::RefStreamable<" + t + ", YV_Cxx::ObjRefTraits<" + t + ">>"; break;
    case AST_Decl::NT_struct:
    case AST_Decl::NT_union:
    case AST_Decl::NT_except: streamable = "YV_Cxx::VarStreamable<" + t + ">"; break;
    case AST_Decl::NT_typedef:
        if (CxxTypeMapping::kind_of(AST_Typedef::narrow_from_decl(d)) == CxxTypeMapping::K_array)
            return;
        streamable = "YV_Cxx::VarStreamable<" + t + ">";
        break;
    default: return;
    }
    const CxxPrinter::Vars vars{{"extern", definitions ? "" : "extern "}, {"s", streamable}, {"slot", slot}, {"t", t}};
    p.print("$extern$template class YV_Cxx::SlotStreamable<$s$, $slot$, $t$>;\n", vars);
    p.print("$extern$template class $s$;\n", vars);
}

void CxxAnyOperatorWriter::write(CxxPrinter& p, AST_Decl* d, const std::string& macro, bool definitions) const
{
    if (!has_operators(d))
        return;
    const std::string t = m_map.full_name(d);
    const std::string tc = m_map.scope_prefix(d) + "_tc_" + m_resolver.local_name(d);
    const std::string insert = "void operator<<=(CORBA::Any& _yvp_any, ";
    const std::string extract = "CORBA::Boolean operator>>=(const CORBA::Any& _yvp_any, ";
    std::vector<Operator> ops;
    // The call of template `fn` with streamable class `s`.
    auto call = [&](const std::string& fn, const std::string& s) {
        return "YV_Cxx::" + fn + "<" + s + ">(_yvp_any, " + tc + ", _yvp_v)";
    };

    switch (d->node_type()) {
    case AST_Decl::NT_enum: {
        const std::string s = "YV_Cxx::BasicStreamable<" + t + ">";
        ops.push_back({insert + t + " _yvp_v)", call("any_insert_copy", s)});
        ops.push_back({extract + t + "& _yvp_v)", "return " + call("any_extract_value", s)});
        break;
    }
    case AST_Decl::NT_interface: {
        const std::string s = "YV_Cxx::ObjRefStreamable<" + t + ">";
        ops.push_back({insert + t + "_ptr _yvp_v)", call("any_insert_copy", s)});
        ops.push_back({insert + t + "_ptr* _yvp_v)", call("any_insert_adopt", s)});
        ops.push_back({extract + t + "_ptr& _yvp_v)", "return " + call("any_extract_value", s)});
        break;
    }
    case AST_Decl::NT_value:
    case AST_Decl::NT_value_box: {
        // Insertion shares the instance (one reference more), the T** form
        // takes the caller's over; extraction leaves it owned by the any.
        const std::string s = "YV_Cxx::ValueStreamable<" + t + ">";
        ops.push_back({insert + t + "* _yvp_v)", call("any_insert_shared", s)});
        ops.push_back({insert + t + "** _yvp_v)", call("any_insert_adopt", s)});
        ops.push_back({extract + t + "*& _yvp_v)", "return " + call("any_extract_value", s)});
        break;
    }
    case AST_Decl::NT_typedef:
        if (CxxTypeMapping::kind_of(AST_Typedef::narrow_from_decl(d)) == CxxTypeMapping::K_array) {
            const std::string s = "YV_Cxx::ArrayStreamable<" + t + ">";
            ops.push_back({insert + "const " + t + "_forany& _yvp_v)", call("any_insert_array", s)});
            ops.push_back({extract + t + "_forany& _yvp_v)", "return " + call("any_extract_array", s)});
            break;
        }
        [[fallthrough]];
    default: {
        const std::string s = "YV_Cxx::VarStreamable<" + t + ">";
        ops.push_back({insert + "const " + t + "& _yvp_v)", call("any_insert_copy", s)});
        ops.push_back({insert + t + "* _yvp_v)", call("any_insert_adopt", s)});
        ops.push_back({extract + "const " + t + "*& _yvp_v)", "return " + call("any_extract_ptr", s)});
        // Kept for old programs; the standard mapping has deprecated it.
        if (d->node_type() != AST_Decl::NT_except)
            ops.push_back({extract + t + "*& _yvp_v)", "return " + call("any_extract_ptr", s)});
        break;
    }
    }

    for (const Operator& op : ops) {
        if (definitions)
            p.print("$decl$ { $call$; }\n", {{"decl", op.declaration}, {"call", op.call}});
        else
            p.print("$macro$$decl$;\n", {{"macro", macro}, {"decl", op.declaration}});
    }
}
