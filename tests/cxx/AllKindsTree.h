// A tree holding module M with one named type of every kind the C++
// mapping distinguishes, and interface M::I with one operation per kind
// (in, inout and out parameters and a result of that kind).
//
//   module M {
//     struct FixS { long a; };            struct VarS { string s; };
//     union U switch (long) { case 1: long x; };   enum E { e1, e2 };
//     typedef sequence<long> LongSeq;     typedef LongSeq LongSeq2;
//     typedef long LongArr[4];            typedef string StrArr[2];
//     typedef fixed<5,2> Money;           typedef long MyLong;
//     typedef string MyString;            interface Other {};
//     valuetype V {};                     native N;
//     interface I { <kind> op_<kind>(in <kind> a, inout <kind> b, out <kind> c); ...
//                   void op_void(); string<10> op_bounded(in string<10> a);
//                   readonly attribute long ro; attribute VarS rw; };
//   };
#ifndef ALLKINDSTREE_H
#define ALLKINDSTREE_H

#include "CxxTestTree.h"

#include <string>
#include <vector>

struct AllKindsTree {
    AllKindsTree();

    // The type of the kind named as in `kinds`; null for an unknown name.
    AST_Type* type(const std::string& kind) const;

    CxxTestTree tree;
    AST_Module* m = nullptr;
    AST_Interface* i = nullptr;
    AST_Interface* other = nullptr;
    AST_Value* value = nullptr;
    AST_Native* native = nullptr;
    AST_String* bounded = nullptr;
    // Each kind's type with the suffix of its operation, in declaration order.
    std::vector<std::pair<std::string, AST_Type*>> kinds;
};

#endif
