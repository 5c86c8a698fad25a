// The C++ name resolver: IDL names that are C++ keywords or alternative
// tokens (up to C++20) get the clash prefix; predefined types get their
// CORBA:: names.
#ifndef CPPRESOLVER_H
#define CPPRESOLVER_H

#include "NameResolver.h"

class GEN_CPlusPlus;

class CPPResolver : public NameResolver {
public:
    // Made for one generator, which the C++ names do not depend on.
    explicit CPPResolver(GEN_CPlusPlus* /*gen*/) {}

    // "CORBA::Long", "CORBA::Any", "CORBA::TypeCode_ptr", "void", ...
    const char* get_predef_type(AST_PredefinedType::PredefinedType pt) override;

    // True for every C++ keyword and alternative token.
    static bool is_cxx_keyword(const std::string& name);

protected:
    bool is_reserved(const std::string& name) const override;
};

#endif
