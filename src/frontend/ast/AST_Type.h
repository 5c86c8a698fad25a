// The base of every node that names a type.
#ifndef AST_TYPE_H
#define AST_TYPE_H

#include "AST_Decl.h"

class AST_Type : public AST_Decl {
public:
    using AST_Decl::AST_Decl;
    static AST_Type* narrow_from_decl(AST_Decl* d) { return d ? d->as_type() : nullptr; }
    AST_Type* as_type() override { return this; }

    // Whether values of the type have a fixed length (the distinction of
    // the C++ mapping), once a back end has worked it out. Kept with the
    // type so that asking again, for every use of the type and through
    // every type that holds it, costs nothing: a structure holding another
    // twice, which holds another twice, ... would otherwise be walked an
    // exponential number of times.
    enum class Length { Unknown, Fixed, Variable };
    Length known_length() const { return m_length; }
    void set_known_length(Length l) const { m_length = l; }

private:
    mutable Length m_length = Length::Unknown;
};

#endif
