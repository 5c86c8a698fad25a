#include "VectorTypes.hh"

namespace {

using CORBA::TypeCode;

extern const CORBA::TypeCode_ptr node_seq;
const TypeCode::Member node_m[] = {{"value", &CORBA::_tc_long, 0, 0}, {"children", &node_seq, 0, 0}};
TypeCode node = TypeCode::yv_struct(CORBA::tk_struct, "IDL:V/Node:1.0", "Node", node_m, 2);
TypeCode node_seq_o = TypeCode::yv_sequence(&V::_tc_Node, 0);
const CORBA::TypeCode_ptr node_seq = &node_seq_o;

TypeCode forest_seq_o = TypeCode::yv_sequence(&V::_tc_Tree, 0);
const CORBA::TypeCode_ptr forest_seq = &forest_seq_o;
TypeCode forest = TypeCode::yv_alias(CORBA::tk_alias, "IDL:V/Forest:1.0", "Forest", &forest_seq);
const TypeCode::Member tree_m[] = {{"label", &CORBA::_tc_string, 0, 0}, {"trees", &V::_tc_Forest, 0, 0}};
TypeCode tree = TypeCode::yv_struct(CORBA::tk_struct, "IDL:V/Tree:1.0", "Tree", tree_m, 2);

const TypeCode::Member point_m[] = {{"x", &CORBA::_tc_short, 0, 0}, {"y", &CORBA::_tc_double, 0, 0}};
TypeCode point = TypeCode::yv_struct(CORBA::tk_struct, "IDL:V/Point:1.0", "Point", point_m, 2);
const TypeCode::Member pair_m[] = {{"a", &V::_tc_Point, 0, 0}, {"b", &V::_tc_Point, 0, 0}};
TypeCode pair = TypeCode::yv_struct(CORBA::tk_struct, "IDL:V/Pair:1.0", "Pair", pair_m, 2);

const TypeCode::Member u_m[] = {
    {"s", &CORBA::_tc_string, 1, 0}, {"p", &V::_tc_Point, 2, 0}, {"o", &CORBA::_tc_octet, 0, 0}};
TypeCode u = TypeCode::yv_union("IDL:V/U:1.0", "U", &CORBA::_tc_long, u_m, 3, 2);

TypeCode long_seq_o = TypeCode::yv_sequence(&CORBA::_tc_long, 0);
const CORBA::TypeCode_ptr long_seq = &long_seq_o;
TypeCode long_seq_seq_o = TypeCode::yv_sequence(&long_seq, 0);
const CORBA::TypeCode_ptr long_seq_seq = &long_seq_seq_o;
TypeCode long_seq_seq_alias = TypeCode::yv_alias(CORBA::tk_alias, "IDL:V/LongSeqSeq:1.0", "LongSeqSeq", &long_seq_seq);

const TypeCode::Member wide_m[] = {{"w", &CORBA::_tc_wstring, 0, 0}, {"c", &CORBA::_tc_wchar, 0, 0}};
TypeCode wide = TypeCode::yv_struct(CORBA::tk_struct, "IDL:V/Wide:1.0", "Wide", wide_m, 2);

const TypeCode::Member colour_m[] = {{"red", nullptr, 0, 0}, {"green", nullptr, 0, 0}, {"blue", nullptr, 0, 0}};
TypeCode colour = TypeCode::yv_enum("IDL:V/Colour:1.0", "Colour", colour_m, 3);

TypeCode point_alias = TypeCode::yv_alias(CORBA::tk_alias, "IDL:V/PointAlias:1.0", "PointAlias", &V::_tc_Point);

TypeCode string8_o = TypeCode::yv_string(CORBA::tk_string, 8);
const CORBA::TypeCode_ptr string8 = &string8_o;
TypeCode name = TypeCode::yv_alias(CORBA::tk_alias, "IDL:V/Name:1.0", "Name", &string8);

TypeCode row_o = TypeCode::yv_array(&CORBA::_tc_long, 3);
const CORBA::TypeCode_ptr row = &row_o;
TypeCode rows_o = TypeCode::yv_array(&row, 2);
const CORBA::TypeCode_ptr rows = &rows_o;
TypeCode grid = TypeCode::yv_alias(CORBA::tk_alias, "IDL:V/Grid:1.0", "Grid", &rows);

TypeCode account = TypeCode::yv_objref(CORBA::tk_objref, "IDL:V/Account:1.0", "Account");

const TypeCode::Member refused_m[] = {{"reason", &CORBA::_tc_string, 0, 0}};
TypeCode refused = TypeCode::yv_struct(CORBA::tk_except, "IDL:V/Refused:1.0", "Refused", refused_m, 1);

const TypeCode::Member by_colour_m[] = {
    {"r", &CORBA::_tc_long, 0, 0}, {"gb", &V::_tc_Name, 1, 0}, {"gb", &V::_tc_Name, 2, 0}};
TypeCode by_colour = TypeCode::yv_union("IDL:V/ByColour:1.0", "ByColour", &V::_tc_Colour, by_colour_m, 3, -1);

TypeCode money_o = TypeCode::yv_fixed(5, 2);
const CORBA::TypeCode_ptr money = &money_o;
TypeCode few_o = TypeCode::yv_sequence(&V::_tc_Point, 4);
const CORBA::TypeCode_ptr few = &few_o;
const TypeCode::Member kinds_m[] = {
    {"s", &CORBA::_tc_short, 0, 0},      {"us", &CORBA::_tc_ushort, 0, 0},      {"l", &CORBA::_tc_long, 0, 0},
    {"ul", &CORBA::_tc_ulong, 0, 0},     {"ll", &CORBA::_tc_longlong, 0, 0},    {"ull", &CORBA::_tc_ulonglong, 0, 0},
    {"f", &CORBA::_tc_float, 0, 0},      {"d", &CORBA::_tc_double, 0, 0},       {"b", &CORBA::_tc_boolean, 0, 0},
    {"c", &CORBA::_tc_char, 0, 0},       {"o", &CORBA::_tc_octet, 0, 0},        {"a", &CORBA::_tc_any, 0, 0},
    {"t", &CORBA::_tc_TypeCode, 0, 0},   {"obj", &CORBA::_tc_Object, 0, 0},     {"acc", &V::_tc_Account, 0, 0},
    {"str", &CORBA::_tc_string, 0, 0},   {"bounded", &V::_tc_Name, 0, 0},       {"col", &V::_tc_Colour, 0, 0},
    {"g", &V::_tc_Grid, 0, 0},           {"pa", &V::_tc_PointAlias, 0, 0},      {"bc", &V::_tc_ByColour, 0, 0},
    {"money", &money, 0, 0},             {"few", &few, 0, 0},
};
TypeCode kinds = TypeCode::yv_struct(CORBA::tk_struct, "IDL:V/Kinds:1.0", "Kinds", kinds_m, 23);

} // namespace

const CORBA::TypeCode_ptr V::_tc_Node = &node;
const CORBA::TypeCode_ptr V::_tc_Forest = &forest;
const CORBA::TypeCode_ptr V::_tc_Tree = &tree;
const CORBA::TypeCode_ptr V::_tc_Point = &point;
const CORBA::TypeCode_ptr V::_tc_Pair = &pair;
const CORBA::TypeCode_ptr V::_tc_U = &u;
const CORBA::TypeCode_ptr V::_tc_LongSeqSeq = &long_seq_seq_alias;
const CORBA::TypeCode_ptr V::_tc_Wide = &wide;
const CORBA::TypeCode_ptr V::_tc_Colour = &colour;
const CORBA::TypeCode_ptr V::_tc_PointAlias = &point_alias;
const CORBA::TypeCode_ptr V::_tc_Name = &name;
const CORBA::TypeCode_ptr V::_tc_Grid = &grid;
const CORBA::TypeCode_ptr V::_tc_Account = &account;
const CORBA::TypeCode_ptr V::_tc_Refused = &refused;
const CORBA::TypeCode_ptr V::_tc_ByColour = &by_colour;
const CORBA::TypeCode_ptr V::_tc_Kinds = &kinds;
