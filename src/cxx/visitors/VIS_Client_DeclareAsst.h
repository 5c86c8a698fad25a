// Writes the name of the runtime's streamable class of a type, inline (no
// indentation, no line end): "YV_Cxx::BasicStreamable<CORBA::Long>",
// "YV_Cxx::VarStreamable<M::S>", ... The usage value 0x8000 asks for the
// class name as the type of a streamable pointer; every usage writes the
// same name.
#ifndef VIS_CLIENT_DECLAREASST_H
#define VIS_CLIENT_DECLAREASST_H

#include "VIS_CxxTypeVisitor.h"

class VIS_Client_DeclareAsst : public virtual VIS_CxxTypeVisitor {
public:
    VIS_Client_DeclareAsst(std::ostream& os, int level, UTL_Scope* scope, CodeGenerator* gen, long usage);
    const char* name() override { return "VIS_Client_DeclareAsst"; }
    long usage() const { return m_usage; }

protected:
    long visit_type(AST_Type* t) override;

private:
    long m_usage;
};

#endif
