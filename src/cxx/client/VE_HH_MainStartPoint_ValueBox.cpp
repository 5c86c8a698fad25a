#include "VE_HH_MainStartPoint_ValueBox.h"

#include "AST_ValueBox.h"
#include "CxxClientText.h"

#include <ostream>

long VE_HH_MainStartPoint_ValueBox::visit(AST_Decl* d)
{
    AST_ValueBox* b = AST_ValueBox::narrow_from_decl(d);
    if (!b)
        throw Visitor_i::NarrowFailure(visitor(), d);
    CxxClientText text(visitor());
    const CxxTypeMapping& map = text.mapping();
    AST_Type* t = b->boxed_type();
    const std::string name = text.local(b);
    const std::string full = text.full(b);
    const std::string in = map.member_writer(t) + " _yvp_value";
    const std::string assign = map.assign_member(t, "_yv_value", "_yvp_value");

    if (text.first_companions(b)) {
        at_indent() << "class " << name << ";\n";
        text.write_companions(b, name, b->defined_in());
        os() << "\n";
    }
    at_indent() << "class " << text.class_macro() << name << " :\n";
    indent().increment();
    at_indent() << "public virtual CORBA::DefaultValueRefCountBase\n";
    indent().decrement();
    at_indent() << "{\n";
    at_indent() << "  public:\n";
    indent().increment();
    at_indent() << name << "() {}\n";
    at_indent() << name << "(" << in << ") { " << assign << "; }\n";
    at_indent() << full << "& operator=(" << in << ") { " << assign << "; return *this; }\n\n";
    at_indent() << map.member_reader(t) << " _value() const { return _yv_value; }\n";
    if (CxxTypeMapping::has_member_modifier(t))
        at_indent() << map.member_modifier(t) << " _value() { return _yv_value; }\n";
    at_indent() << "void _value(" << in << ") { " << assign << "; }\n\n";
    at_indent() << "CORBA::ValueBase* _copy_value() override { return new " << full << "(*this); }\n";
    at_indent() << "static " << full << "* _downcast(CORBA::ValueBase* _yvp_base) { return dynamic_cast<" << full
                << "*>(_yvp_base); }\n";
    at_indent() << "static const YV_FWString _yv_fw_type_id;\n";
    indent().decrement();
    os() << "\n";
    at_indent() << "  protected:\n";
    indent().increment();
    at_indent() << "~" << name << "() override {}\n";
    indent().decrement();
    os() << "\n";
    at_indent() << "  private:\n";
    indent().increment();
    at_indent() << map.member_declaration(t, "_yv_value") << "{};\n";
    indent().decrement();
    at_indent() << "};\n";
    text.write_typecode_declaration(b);
    os() << "\n";
    return 1;
}
