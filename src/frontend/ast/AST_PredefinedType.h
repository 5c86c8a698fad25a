// A basic type of IDL (long, char, any, void, TypeCode, ...).
#ifndef AST_PREDEFINEDTYPE_H
#define AST_PREDEFINEDTYPE_H

#include "AST_Type.h"

class AST_PredefinedType : public AST_Type {
public:
    // The numbers are fixed: back ends compare and print them.
    enum PredefinedType {
        PT_long = 0,
        PT_ulong = 1,
        PT_longlong = 2,
        PT_ulonglong = 3,
        PT_short = 4,
        PT_ushort = 5,
        PT_float = 6,
        PT_double = 7,
        PT_longdouble = 8,
        PT_char = 9,
        PT_wchar = 10,
        PT_boolean = 11,
        PT_octet = 12,
        PT_any = 13,
        PT_void = 14,
        PT_typecode = 15,   // CORBA::TypeCode
        PT_principal = 16   // CORBA::Principal
    };

    AST_PredefinedType(PredefinedType pt, Identifier name) : AST_Type(NT_pre_defined, std::move(name)), m_pt(pt) {}
    static AST_PredefinedType* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_pre_defined ? static_cast<AST_PredefinedType*>(d) : nullptr; }

    PredefinedType pt() const { return m_pt; }
    long accept(Visitor* v) override;

private:
    PredefinedType m_pt;
};

#endif
