// Semantic checks that look at more than one declaration: names clashing
// along inheritance, oneway operations, types used by value before their
// definition is complete.
#ifndef IDL_CHECKS_H
#define IDL_CHECKS_H

#include "IDL_Loc.h"

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

class AST_Decl;
class AST_Interface;
class AST_Operation;
class AST_Type;
class IDL_Names;
class UTL_Scope;

class IDL_Checks {
public:
    // The interfaces and value types `s` inherits from or supports, directly
    // or not, each once, in depth-first declaration order; `s` left out.
    static std::vector<UTL_Scope*> ancestors(UTL_Scope* s);

    // What `s` inherits, as the inheritance limit counts it: one for each
    // ancestor and each declaration the ancestors hold, one for each base
    // named on the way. Counting stops at `cap`, so the answer is at most
    // `cap` and the walk costs no more than that.
    static std::size_t inheritance_cost(UTL_Scope* s, std::size_t cap);

    // Reports an operation or attribute name that two different ancestors
    // (as `ancestors` gives them) declare: inheriting both would be
    // ambiguous. Only possible with more than one direct base.
    static void inherited_clashes(const std::vector<UTL_Scope*>& ancestors, const IDL_Loc& loc);
    // Reports when an operation or attribute `name` about to be declared in
    // `s` is already one of its ancestors; false then.
    static bool member_against_bases(UTL_Scope* s, const std::string& name, IDL_Names& names, const IDL_Loc& loc);

    // A oneway operation returns void, has only "in" arguments and raises
    // nothing.
    static void oneway(AST_Operation* op, const IDL_Loc& loc);

    // The structure or union whose definition is not complete (forward
    // declared only, or still being defined) that a value of type `t` would
    // hold directly, looking through typedefs and arrays; null when none.
    static AST_Decl* incomplete(AST_Type* t);
    // Reports `t` used by value where `incomplete` finds such a type.
    static bool complete_by_value(AST_Type* t, const IDL_Loc& loc);

    // The local interface a value of type `t` involves, through typedefs,
    // sequences, arrays and the members of structures, unions and
    // exceptions; null when none. `known` keeps the answer for each type
    // asked about, so that a type used often is walked once.
    static AST_Interface* local_type(AST_Type* t, std::unordered_map<const AST_Type*, AST_Interface*>& known);
};

#endif
