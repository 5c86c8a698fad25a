// Static type codes in the shape generated code defines them, for the type
// code and any tests:
//     module T {
//       struct Money { long long amount; string currency; };
//       typedef Money Cash;                          // an alias
//       struct Node { long value; sequence<Node> children; };   // recursive
//       enum Colour { red, green, blue };
//       union Choice switch (Colour) { case red: long r; case green: case blue: string gb; };
//       union Shape switch (short) { case 1: long a; default: double d; };
//       typedef long Grid[2][3];
//       typedef fixed<9,2> Price;
//       interface Account;
//       exception Refused { string reason; };
//     };
#ifndef TYPECODETYPES_HH
#define TYPECODETYPES_HH

#include <omg/CORBA.hh>

namespace T {
extern const CORBA::TypeCode_ptr _tc_Money;
extern const CORBA::TypeCode_ptr _tc_Cash;
extern const CORBA::TypeCode_ptr _tc_Node;
extern const CORBA::TypeCode_ptr _tc_Colour;
extern const CORBA::TypeCode_ptr _tc_Choice;
extern const CORBA::TypeCode_ptr _tc_Shape;
extern const CORBA::TypeCode_ptr _tc_Grid;
extern const CORBA::TypeCode_ptr _tc_Price;
extern const CORBA::TypeCode_ptr _tc_Account;
extern const CORBA::TypeCode_ptr _tc_Refused;
} // namespace T

#endif
