// An argument of an operation or value factory.
#ifndef AST_ARGUMENT_H
#define AST_ARGUMENT_H

#include "AST_Field.h"
#include "UTL_IdList.h"
#include "UTL_StrList.h"

class AST_Argument : public AST_Field {
public:
    enum Direction { dir_IN = 0, dir_OUT = 1, dir_INOUT = 2 };

    // The argument is named by the last identifier of `name`; `pragmas` may
    // be null. The type is not owned.
    AST_Argument(Direction d, AST_Type* type, const UTL_IdList& name, const UTL_StrList* pragmas = nullptr)
        : AST_Field(NT_argument, type, name.empty() ? Identifier() : name.last()), m_direction(d)
    {
        (void)pragmas;
    }
    static AST_Argument* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_argument ? static_cast<AST_Argument*>(d) : nullptr; }

    Direction direction() const { return m_direction; }
    long accept(Visitor* v) override;

private:
    Direction m_direction;
};

#endif
