// An operation. Its scope holds its arguments, in declaration order.
#ifndef AST_OPERATION_H
#define AST_OPERATION_H

#include "AST_Decl.h"
#include "AST_Type.h"
#include "UTL_ExceptList.h"
#include "UTL_Scope.h"
#include "UTL_StrList.h"

class AST_Operation : public AST_Decl, public UTL_Scope {
public:
    enum Flags { OP_noflags = 0, OP_oneway = 1 };

    AST_Operation(AST_Type* return_type, Flags flags, Identifier name)
        : AST_Decl(NT_op, std::move(name)), m_return_type(return_type), m_flags(flags)
    {
    }
    static AST_Operation* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_op ? static_cast<AST_Operation*>(d) : nullptr; }

    AST_Type* return_type() const { return m_return_type; }
    Flags flags() const { return m_flags; }
    long is_oneway() const { return m_flags == OP_oneway; }
    // The raises clause; empty when there is none.
    UTL_ExceptList* exceptions() { return &m_raises; }
    // The context clause; empty when there is none.
    UTL_StrList* context() { return &m_context; }
    void set_context(UTL_StrList c) { m_context = std::move(c); }

    AST_Decl* scope_as_decl() override { return this; }
    UTL_Scope* as_scope() override { return this; }
    long accept(Visitor* v) override;

private:
    AST_Type* m_return_type;
    Flags m_flags;
    UTL_ExceptList m_raises;
    UTL_StrList m_context;
};

#endif
