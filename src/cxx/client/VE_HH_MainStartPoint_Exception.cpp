#include "VE_HH_MainStartPoint_Exception.h"

#include "AST_Exception.h"
#include "CxxClientText.h"
#include "CxxLiteral.h"
#include "CxxMemberDeclaration.h"
#include "CxxNaming.h"
#include "GEN_CPlusPlus.h"
#include "VIS_HH_MainStartPoint.h"

#include <ostream>

long VE_HH_MainStartPoint_Exception::visit(AST_Decl* d)
{
    AST_Exception* e = AST_Exception::narrow_from_decl(d);
    if (!e)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    at_indent() << "class " << text.class_macro() << text.local(e) << " :\n";
    indent().increment();
    at_indent() << "public CORBA::UserException\n";
    indent().decrement();
    at_indent() << "{\n";
    at_indent() << "  public:\n";
    VIS_HH_MainStartPoint::write_scope(os(), indent().get_indent() + 1, e, generator());
    output_constructors(e);
    output_standard_members(e);
    indent().increment();
    for (AST_Field* f : e->fields())
        at_indent() << text.mapping().member_declaration(f->field_type(), text.local(f)) << ";\n";
    indent().decrement();
    at_indent() << "};\n";
    text.write_typecode_declaration(e);
    os() << "\n";
    return 1;
}

void VE_HH_MainStartPoint_Exception::output_constructors(AST_Exception* e)
{
    CxxClientText text(visitor());
    const std::string name = text.local(e);
    indent().increment();
    at_indent() << name << "() {}\n\n";
    const std::vector<AST_Field*> fields = e->fields();
    if (!fields.empty()) {
        CxxMemberDeclaration ctor("", name);
        for (AST_Field* f : fields)
            ctor.add_parameter(text.mapping().member_writer(f->field_type()), yvparam(text.local(f).c_str()));
        ctor.write(os(), indent(), nullptr, nullptr);
        os() << "\n";
        at_indent() << "{\n";
        indent().increment();
        for (AST_Field* f : fields) {
            const std::string member = text.local(f);
            at_indent() << text.mapping().assign_member(f->field_type(), member, yvparam(member.c_str())) << ";\n";
        }
        indent().decrement();
        at_indent() << "}\n\n";
    }
    indent().decrement();
}

void VE_HH_MainStartPoint_Exception::output_standard_members(AST_Exception* e)
{
    CxxClientText text(visitor());
    const std::string full = text.full(e);
    indent().increment();
    at_indent() << "const char* _name() const override { return "
                << CxxLiteral::string_literal(e->local_name()->str(), false) << "; }\n";
    at_indent() << "const char* _rep_id() const override { return " << CxxLiteral::string_literal(e->repoID(), false)
                << "; }\n";
    at_indent() << "void _raise() const override { throw *this; }\n";
    at_indent() << "static " << full << "* _downcast(CORBA::Exception* e) { return dynamic_cast<" << full
                << "*>(e); }\n\n";
    indent().decrement();
}
