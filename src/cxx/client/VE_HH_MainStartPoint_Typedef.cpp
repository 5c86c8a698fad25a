#include "VE_HH_MainStartPoint_Typedef.h"

#include "AST_Sequence.h"
#include "AST_Typedef.h"
#include "CxxClientText.h"
#include "CxxMarshalWriter.h"
#include "CxxRuntimeNames.h"

long VE_HH_MainStartPoint_Typedef::visit(AST_Decl* d)
{
    AST_Typedef* td = AST_Typedef::narrow_from_decl(d);
    if (!td)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    CxxPrinter p = text.printer();
    if (CxxRuntimeNames::provided(td, resolver())) {
        p.print("// $name$: defined by the runtime\n\n", {{"name", text.full(td)}});
        return 1;
    }
    const std::string name = text.local(td);
    if (CxxMarshalWriter::is_sequence_class(td)) {
        const std::string base = text.mapping().name(td->base_type());
        // The constructors are inherited under the template's name.
        AST_Sequence* s = AST_Sequence::narrow_from_decl(td->base_type());
        const std::string ctor = s->max_size() != 0 ? "BoundedSequence" : "UnboundedSequence";
        auto cls = p.block("class $name$ : public $base$\n{\n  public:\n", "};\n", {{"name", name}, {"base", base}});
        p.print("using $base$::$ctor$;\n", {{"base", base}, {"ctor", ctor}});
    } else {
        // An array is declared around its new name; every other type is named.
        p.print("typedef $decl$;\n", {{"decl", text.mapping().member_declaration_of_alias(td->base_type(), name)}});
    }
    text.write_companions(td, name, td->defined_in());
    text.write_typecode_declaration(td);
    p.print("\n");
    return 1;
}
