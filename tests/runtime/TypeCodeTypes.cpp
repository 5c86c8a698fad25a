#include "TypeCodeTypes.hh"

namespace {

const CORBA::TypeCode::Member money_members[] = {
    {"amount", &CORBA::_tc_longlong, 0, 0},
    {"currency", &CORBA::_tc_string, 0, 0},
};
CORBA::TypeCode money = CORBA::TypeCode::yv_struct(CORBA::tk_struct, "IDL:T/Money:1.0", "Money", money_members, 2);

CORBA::TypeCode cash = CORBA::TypeCode::yv_alias(CORBA::tk_alias, "IDL:T/Cash:1.0", "Cash", &T::_tc_Money);

extern const CORBA::TypeCode_ptr node_seq_tc;
const CORBA::TypeCode::Member node_members[] = {
    {"value", &CORBA::_tc_long, 0, 0},
    {"children", &node_seq_tc, 0, 0},
};
CORBA::TypeCode node = CORBA::TypeCode::yv_struct(CORBA::tk_struct, "IDL:T/Node:1.0", "Node", node_members, 2);
CORBA::TypeCode node_seq = CORBA::TypeCode::yv_sequence(&T::_tc_Node, 0);
const CORBA::TypeCode_ptr node_seq_tc = &node_seq;

const CORBA::TypeCode::Member colour_members[] = {
    {"red", nullptr, 0, 0},
    {"green", nullptr, 0, 0},
    {"blue", nullptr, 0, 0},
};
CORBA::TypeCode colour = CORBA::TypeCode::yv_enum("IDL:T/Colour:1.0", "Colour", colour_members, 3);

const CORBA::TypeCode::Member choice_members[] = {
    {"r", &CORBA::_tc_long, 0, 0},
    {"gb", &CORBA::_tc_string, 1, 0},
    {"gb", &CORBA::_tc_string, 2, 0},
};
CORBA::TypeCode choice = CORBA::TypeCode::yv_union("IDL:T/Choice:1.0", "Choice", &T::_tc_Colour, choice_members, 3, -1);

const CORBA::TypeCode::Member shape_members[] = {
    {"a", &CORBA::_tc_long, 1, 0},
    {"d", &CORBA::_tc_double, 0, 0},
};
CORBA::TypeCode shape = CORBA::TypeCode::yv_union("IDL:T/Shape:1.0", "Shape", &CORBA::_tc_short, shape_members, 2, 1);

CORBA::TypeCode grid_row = CORBA::TypeCode::yv_array(&CORBA::_tc_long, 3);
const CORBA::TypeCode_ptr grid_row_tc = &grid_row;
CORBA::TypeCode grid_array = CORBA::TypeCode::yv_array(&grid_row_tc, 2);
const CORBA::TypeCode_ptr grid_array_tc = &grid_array;
CORBA::TypeCode grid = CORBA::TypeCode::yv_alias(CORBA::tk_alias, "IDL:T/Grid:1.0", "Grid", &grid_array_tc);

CORBA::TypeCode price_fixed = CORBA::TypeCode::yv_fixed(9, 2);
const CORBA::TypeCode_ptr price_fixed_tc = &price_fixed;
CORBA::TypeCode price = CORBA::TypeCode::yv_alias(CORBA::tk_alias, "IDL:T/Price:1.0", "Price", &price_fixed_tc);

CORBA::TypeCode account = CORBA::TypeCode::yv_objref(CORBA::tk_objref, "IDL:T/Account:1.0", "Account");

const CORBA::TypeCode::Member refused_members[] = {
    {"reason", &CORBA::_tc_string, 0, 0},
};
CORBA::TypeCode refused = CORBA::TypeCode::yv_struct(CORBA::tk_except, "IDL:T/Refused:1.0", "Refused", refused_members, 1);

} // namespace

const CORBA::TypeCode_ptr T::_tc_Money = &money;
const CORBA::TypeCode_ptr T::_tc_Cash = &cash;
const CORBA::TypeCode_ptr T::_tc_Node = &node;
const CORBA::TypeCode_ptr T::_tc_Colour = &colour;
const CORBA::TypeCode_ptr T::_tc_Choice = &choice;
const CORBA::TypeCode_ptr T::_tc_Shape = &shape;
const CORBA::TypeCode_ptr T::_tc_Grid = &grid;
const CORBA::TypeCode_ptr T::_tc_Price = &price;
const CORBA::TypeCode_ptr T::_tc_Account = &account;
const CORBA::TypeCode_ptr T::_tc_Refused = &refused;
