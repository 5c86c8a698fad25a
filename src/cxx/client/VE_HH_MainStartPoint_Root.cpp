#include "VE_HH_MainStartPoint_Root.h"

#include "AST_Interface.h"
#include "AST_Root.h"
#include "AST_Type.h"
#include "AST_Typedef.h"
#include "AST_Value.h"
#include "CxxAnyOperatorWriter.h"
#include "CxxClientText.h"
#include "CxxMarshalWriter.h"
#include "CxxPrinter.h"
#include "CxxRuntimeNames.h"
#include "CxxValueWriter.h"
#include "GEN_CPlusPlus.h"

namespace {

void collect(UTL_Scope* s, NameResolver& resolver, std::vector<AST_Decl*>& found)
{
    for (const auto& member : s->decls()) {
        AST_Decl* d = member.get();
        if (!d->in_main_file())
            continue;
        switch (d->node_type()) {
        case AST_Decl::NT_module: collect(DeclAsScope(d), resolver, found); break;
        case AST_Decl::NT_interface:
        case AST_Decl::NT_value:
            if (CxxRuntimeNames::provided(d, resolver))
                break;
            found.push_back(d);
            collect(DeclAsScope(d), resolver, found);
            break;
        case AST_Decl::NT_struct:
        case AST_Decl::NT_union:
        case AST_Decl::NT_except:
            if (CxxRuntimeNames::provided(d, resolver))
                break;
            found.push_back(d);
            collect(DeclAsScope(d), resolver, found);
            break;
        case AST_Decl::NT_enum:
        case AST_Decl::NT_typedef:
        case AST_Decl::NT_value_box:
        case AST_Decl::NT_native:
            if (!CxxRuntimeNames::provided(d, resolver))
                found.push_back(d);
            break;
        default: break;
        }
    }
}

bool has_marshal(AST_Decl* d)
{
    switch (d->node_type()) {
    case AST_Decl::NT_struct:
    case AST_Decl::NT_union:
    case AST_Decl::NT_enum: return true;
    case AST_Decl::NT_interface: {
        AST_Interface* i = AST_Interface::narrow_from_decl(d);
        return i->is_abstract() && !i->is_local();
    }
    default: return false;
    }
}

} // namespace

std::vector<AST_Decl*> VE_HH_MainStartPoint_Root::global_types(UTL_Scope* s, NameResolver& resolver)
{
    std::vector<AST_Decl*> found;
    collect(s, resolver, found);
    return found;
}

long VE_HH_MainStartPoint_Root::visit(AST_Decl* d)
{
    AST_Root* root = AST_Root::narrow_from_decl(d);
    if (!root)
        throw Visitor_i::NarrowFailure(visitor(), d);
    // An include line stands where its directive stood among the file's
    // own declarations.
    GEN_CPlusPlus* gen = CxxClientText(visitor()).generator();
    const auto& decls = root->decls();
    for (std::size_t i = 0; i < decls.size(); ++i) {
        if (!decls[i]->in_main_file())
            continue;
        if (gen && gen->write_includes_before(os(), i))
            os() << "\n";
        decls[i]->accept(visitor());
    }
    if (gen && gen->write_includes_before(os(), decls.size()))
        os() << "\n";
    output_global(root);
    return 1;
}

void VE_HH_MainStartPoint_Root::output_global(AST_Root* root)
{
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    const CxxMarshalWriter marshal(text.mapping(), resolver());
    const CxxAnyOperatorWriter any(text.mapping(), resolver());
    const std::string macro = text.class_macro();
    const std::vector<AST_Decl*> types = global_types(root, resolver());
    // The concrete classes of value types, which users derive from and the
    // default factories make.
    const CxxValueWriter values(text.mapping(), resolver(), marshal);
    for (AST_Decl* d : types)
        if (AST_Value* v = AST_Value::narrow_from_decl(d); v && !v->is_abstract()) {
            values.write_obv_class(p, v);
            p.print("\n");
        }
    std::vector<AST_Typedef*> sequences;
    for (AST_Decl* d : types) {
        AST_Typedef* td = AST_Typedef::narrow_from_decl(d);
        if (CxxMarshalWriter::is_sequence_class(td))
            sequences.push_back(td);
        const bool marshaled = has_marshal(d);
        if (!marshaled && !CxxAnyOperatorWriter::has_operators(d))
            continue;
        if (marshaled)
            marshal.write_declaration(p, AST_Type::narrow_from_decl(d), macro);
        any.write_declarations(p, d, macro);
        p.print("\n");
    }
    // A sequence class takes the Marshal of its base sequence, which needs
    // its element's: these come after every other specialisation.
    for (AST_Typedef* td : sequences)
        marshal.write_declaration(p, td, macro);
    if (!sequences.empty())
        p.print("\n");
    // Last, when every Marshal the streamables need is declared.
    bool instantiated = false;
    for (AST_Decl* d : types) {
        if (!CxxAnyOperatorWriter::has_operators(d))
            continue;
        any.write_instantiations(p, d, false);
        instantiated = true;
    }
    if (instantiated)
        p.print("\n");
}
