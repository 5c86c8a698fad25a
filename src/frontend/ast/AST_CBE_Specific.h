// A block of text addressed to one back end by name, kept verbatim.
#ifndef AST_CBE_SPECIFIC_H
#define AST_CBE_SPECIFIC_H

#include "AST_Decl.h"
#include "UTL_String.h"

#include <string>

class AST_CBE_Specific : public AST_Decl {
public:
    AST_CBE_Specific(std::string backend, std::string text)
        : AST_Decl(NT_cbe_specific, Identifier(backend)), m_ident(std::move(backend)), m_text(std::move(text))
    {
    }
    static AST_CBE_Specific* narrow_from_decl(AST_Decl* d) { return d && d->node_type() == NT_cbe_specific ? static_cast<AST_CBE_Specific*>(d) : nullptr; }

    // The name of the back end the block is addressed to.
    const char* cbe_ident() const { return m_ident.c_str(); }
    // The block's text, each line with its line end.
    UTL_String* cbe_specific_string() { return &m_text; }
    long accept(Visitor* v) override;

private:
    std::string m_ident;
    UTL_String m_text;
};

#endif
