// Copies a back-end block addressed to "POACxx" into the generated file:
// comments ("#" to the line end) are dropped, "@include" lines become
// preprocessor includes, and "@switch" lines apply their "-" and "+" words
// to the generator's options from this point of the run on.
#ifndef VE_POA_HH_CBE_SPECIFIC_H
#define VE_POA_HH_CBE_SPECIFIC_H

#include "VE_Cxx.h"
#include "YV_String.h"

class VE_POA_HH_CBE_Specific : public virtual VE_Cxx {
public:
    explicit VE_POA_HH_CBE_Specific(VIS_Cxx* v) : VE_Cxx(v) {}
    long visit(AST_Decl* d) override;

private:
    static void drop_comments(YV_String& text);
    static void close_up_directives(YV_String& text);
    static void includes_to_preprocessor(YV_String& text);
    void apply_switches(YV_String& text);
};

#endif
