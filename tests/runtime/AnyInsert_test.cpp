// The templates behind generated insertion and extraction operators, used
// the way generated code uses them.
#include "MappingTypes.hh"
#include "TypeCodeTypes.hh"

#include <zantic_sys/YV_Cxx/AnyInsert.h>

#include <gtest/gtest.h>

namespace {

typedef YV_Cxx::VarStreamable<Bank::Owner> OwnerStreamable;
typedef YV_Cxx::VarStreamable<Bank::Refused> RefusedStreamable;
typedef YV_Cxx::ArrayStreamable<Bank::Grid> GridStreamable;
typedef YV_Cxx::Array_forany<Bank::Grid> Grid_forany;

enum Colour { red, green, blue };
typedef YV_Cxx::BasicStreamable<Colour> ColourStreamable;

// Owner's type code stands in for the generated one.
const CORBA::TypeCode_ptr tc_owner = T::_tc_Money;

TEST(AnyInsert, CopiesAdoptsAndExtractsValues)
{
    Bank::Owner owner;
    owner.name = "ada";
    owner.ids.length(1);
    owner.ids[0] = 7;
    CORBA::Any a;
    YV_Cxx::any_insert_copy<OwnerStreamable>(a, tc_owner, owner);
    owner.name = "changed";
    const Bank::Owner* got = nullptr;
    ASSERT_TRUE(YV_Cxx::any_extract_ptr<OwnerStreamable>(a, tc_owner, got));
    EXPECT_STREQ(got->name.in(), "ada");
    EXPECT_TRUE(YV_Cxx::any_extract_ptr<OwnerStreamable>(a, T::_tc_Cash, got)) << "an alias is equivalent";
    EXPECT_FALSE(YV_Cxx::any_extract_ptr<OwnerStreamable>(a, T::_tc_Node, got));

    Bank::Owner* adopted = new Bank::Owner;
    adopted->name = "bob";
    YV_Cxx::any_insert_adopt<OwnerStreamable>(a, tc_owner, adopted);
    ASSERT_TRUE(YV_Cxx::any_extract_ptr<OwnerStreamable>(a, tc_owner, got));
    EXPECT_EQ(got, adopted) << "adoption keeps the object";

    CORBA::Any copy = a;
    ASSERT_TRUE(YV_Cxx::any_extract_ptr<OwnerStreamable>(copy, tc_owner, got));
    EXPECT_NE(got, adopted);
    EXPECT_STREQ(got->name.in(), "bob");

    // An empty any assigned over one holding a value empties it.
    copy = CORBA::Any();
    CORBA::TypeCode_var type = copy.type();
    EXPECT_EQ(type->kind(), CORBA::tk_null);

    YV_Cxx::any_insert_adopt<RefusedStreamable>(a, T::_tc_Refused, new Bank::Refused("no"));
    const Bank::Refused* refused = nullptr;
    ASSERT_TRUE(YV_Cxx::any_extract_ptr<RefusedStreamable>(a, T::_tc_Refused, refused));
    EXPECT_STREQ(refused->reason.in(), "no");
}

TEST(AnyInsert, EnumsByValue)
{
    CORBA::Any a;
    YV_Cxx::any_insert_copy<ColourStreamable>(a, T::_tc_Colour, blue);
    Colour c = red;
    ASSERT_TRUE(YV_Cxx::any_extract_value<ColourStreamable>(a, T::_tc_Colour, c));
    EXPECT_EQ(c, blue);
    CORBA::Long l = 0;
    EXPECT_FALSE(a >>= l);
}

TEST(AnyInsert, ArraysThroughForany)
{
    Bank::Grid_slice* g = Bank::Grid_alloc();
    g[1][2] = 42;
    CORBA::Any a;
    YV_Cxx::any_insert_array<GridStreamable>(a, T::_tc_Grid, Grid_forany(g));
    g[1][2] = 0;
    Grid_forany out;
    ASSERT_TRUE(YV_Cxx::any_extract_array<GridStreamable>(a, T::_tc_Grid, out));
    EXPECT_EQ(out[1][2], 42) << "copied on insertion";
    EXPECT_FALSE(out.nocopy());
    YV_Cxx::any_insert_array<GridStreamable>(a, T::_tc_Grid, Grid_forany(g, true));
    ASSERT_TRUE(YV_Cxx::any_extract_array<GridStreamable>(a, T::_tc_Grid, out));
    EXPECT_EQ(out.ptr(), g) << "taken over with nocopy";
}

TEST(AnyInsert, TypeCodesAndObjectReferencesStayOwnedByTheAny)
{
    CORBA::TypeCode_ptr tc = CORBA::TypeCode::_yv_create(CORBA::tk_string, 4);
    CORBA::Any a;
    a <<= &tc;
    EXPECT_EQ(tc, nullptr) << "the any took the reference over";
    CORBA::TypeCode_ptr out = nullptr;
    ASSERT_TRUE(a >>= out);
    EXPECT_EQ(out->length(), 4u);

    a <<= CORBA::Object::_nil();
    CORBA::Object_ptr obj = reinterpret_cast<CORBA::Object_ptr>(&a);
    ASSERT_TRUE(a >>= obj);
    EXPECT_TRUE(CORBA::is_nil(obj));
}

} // namespace

namespace {

TEST(AnyInsert, SystemExceptions)
{
    CORBA::Any a;
    a <<= CORBA::BAD_PARAM(5, CORBA::COMPLETED_MAYBE);
    const CORBA::BAD_PARAM* bad = nullptr;
    ASSERT_TRUE(a >>= bad);
    EXPECT_EQ(bad->minor(), 5u);
    EXPECT_EQ(bad->completed(), CORBA::COMPLETED_MAYBE);
    const CORBA::MARSHAL* marshal = nullptr;
    EXPECT_FALSE(a >>= marshal);
    a <<= new CORBA::MARSHAL(7);
    ASSERT_TRUE(a >>= marshal);
    EXPECT_EQ(marshal->minor(), 7u);
    CORBA::TypeCode_var tc = a.type();
    EXPECT_STREQ(tc->id(), "IDL:omg.org/CORBA/MARSHAL:1.0");
    CORBA::TypeCode_var completed = tc->member_type(1);
    EXPECT_EQ(completed->member_count(), 3u);
}

} // namespace
