// Type codes: the static ones of generated code, their operations, equality
// and equivalence, compact type codes, and counted type codes' lifetimes.
#include "TypeCodeTypes.hh"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

// The makers are constant expressions: generated type codes need no code
// at start-up.
constexpr CORBA::TypeCode::Member probe_members[] = {{"x", &CORBA::_tc_long, 0, 0}};
constexpr CORBA::TypeCode probe =
    CORBA::TypeCode::yv_struct(CORBA::tk_struct, "IDL:P:1.0", "P", probe_members, 1);
static_assert(probe.yv_member_count() == 1, "constant-initialised");

TEST(TypeCode, OperationsAnswerByKind)
{
    using CORBA::TypeCode;
    CORBA::TypeCode_ptr money = T::_tc_Money;
    EXPECT_STREQ(money->id(), "IDL:T/Money:1.0");
    EXPECT_STREQ(money->name(), "Money");
    EXPECT_EQ(money->member_count(), 2u);
    EXPECT_STREQ(money->member_name(1), "currency");
    CORBA::TypeCode_var m0 = money->member_type(0);
    EXPECT_EQ(m0.in(), CORBA::_tc_longlong);
    EXPECT_THROW(money->member_name(2), TypeCode::Bounds);
    EXPECT_THROW(money->length(), TypeCode::BadKind);
    EXPECT_THROW(money->member_label(0), TypeCode::BadKind);

    EXPECT_EQ(T::_tc_Shape->default_index(), 1);
    EXPECT_EQ(T::_tc_Choice->default_index(), -1);
    CORBA::TypeCode_var disc = T::_tc_Choice->discriminator_type();
    EXPECT_EQ(disc.in(), T::_tc_Colour);
    EXPECT_EQ(T::_tc_Colour->member_count(), 3u);
    EXPECT_THROW(T::_tc_Colour->member_type(0), TypeCode::BadKind);

    CORBA::TypeCode_var grid = T::_tc_Grid->content_type();
    EXPECT_EQ(grid->kind(), CORBA::tk_array);
    EXPECT_EQ(grid->length(), 2u);
    CORBA::TypeCode_var price = T::_tc_Price->content_type();
    EXPECT_EQ(price->fixed_digits(), 9);
    EXPECT_EQ(price->fixed_scale(), 2);
    EXPECT_EQ(CORBA::_tc_string->length(), 0u);
    EXPECT_THROW(CORBA::_tc_long->id(), TypeCode::BadKind);
    EXPECT_STREQ(CORBA::_tc_Object->id(), "IDL:omg.org/CORBA/Object:1.0");
    EXPECT_EQ(CORBA::_tc_ValueBase->type_modifier(), CORBA::VM_NONE);
    EXPECT_TRUE(CORBA::is_nil(CORBA::TypeCode_var(CORBA::_tc_ValueBase->concrete_base_type())));
    EXPECT_EQ(T::_tc_Refused->kind(), CORBA::tk_except);
}

TEST(TypeCode, UnionLabelsAreAnysOfTheDiscriminatorType)
{
    CORBA::Any_var label = T::_tc_Shape->member_label(0);
    CORBA::Short s = 0;
    ASSERT_TRUE(label.in() >>= s);
    EXPECT_EQ(s, 1);
    CORBA::Any_var def = T::_tc_Shape->member_label(1);
    CORBA::Octet o = 9;
    ASSERT_TRUE(def.in() >>= CORBA::Any::to_octet(o)) << "the default label is the octet 0";
    EXPECT_EQ(o, 0);
    CORBA::Any_var enum_label = T::_tc_Choice->member_label(2);
    CORBA::TypeCode_var t = enum_label->type();
    EXPECT_EQ(t.in(), T::_tc_Colour);
}

// Counted type codes made in the test, from the static ones.
CORBA::TypeCode_ptr counted(CORBA::TCKind kind, CORBA::ULong length, const char* id, const char* name)
{
    return CORBA::TypeCode::_yv_create(kind, length, id, name);
}

TEST(TypeCode, EqualAndEquivalent)
{
    struct Case {
        const char* what;
        CORBA::TypeCode_ptr a;
        CORBA::TypeCode_ptr b;
        bool equal;
        bool equivalent;
    };
    CORBA::TypeCode_var other_name = counted(CORBA::tk_objref, 0, "IDL:T/Account:1.0", "Konto");
    CORBA::TypeCode_var other_id = counted(CORBA::tk_objref, 0, "IDL:T/Other:1.0", "Account");
    CORBA::TypeCode_var bounded = counted(CORBA::tk_string, 5, "", "");
    CORBA::TypeCode_var bounded_too = counted(CORBA::tk_string, 5, "", "");
    CORBA::TypeCode_var compact = T::_tc_Node->get_compact_typecode();
    const Case cases[] = {
        {"same object", T::_tc_Money, T::_tc_Money, true, true},
        {"alias and its type", T::_tc_Cash, T::_tc_Money, false, true},
        {"names differ", T::_tc_Account, other_name.in(), false, true},
        {"ids differ", T::_tc_Account, other_id.in(), false, false},
        {"bounds equal", bounded.in(), bounded_too.in(), true, true},
        {"bound and unbounded", bounded.in(), CORBA::_tc_string, false, false},
        {"different kinds", CORBA::_tc_long, CORBA::_tc_ulong, false, false},
        {"recursive, compacted", T::_tc_Node, compact.in(), false, true},
        {"nil", T::_tc_Money, nullptr, false, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.a->equal(c.b), c.equal) << c.what;
        EXPECT_EQ(c.a->equivalent(c.b), c.equivalent) << c.what;
        if (c.b != nullptr) {
            EXPECT_EQ(c.b->equal(c.a), c.equal) << c.what << " (reversed)";
            EXPECT_EQ(c.b->equivalent(c.a), c.equivalent) << c.what << " (reversed)";
        }
    }
}

TEST(TypeCode, CompactTypeCodesLoseNamesKeepAliasesAndCycles)
{
    CORBA::TypeCode_var cash = T::_tc_Cash->get_compact_typecode();
    EXPECT_EQ(cash->kind(), CORBA::tk_alias) << "aliases stay";
    EXPECT_STREQ(cash->id(), "IDL:T/Cash:1.0");
    EXPECT_STREQ(cash->name(), "");
    CORBA::TypeCode_var money = cash->content_type();
    EXPECT_STREQ(money->member_name(0), "");
    EXPECT_TRUE(money->equivalent(T::_tc_Money));

    CORBA::TypeCode_var node = T::_tc_Node->get_compact_typecode();
    CORBA::TypeCode_var seq = node->member_type(1);
    CORBA::TypeCode_var again = seq->content_type();
    EXPECT_EQ(again.in(), node.in()) << "the cycle is kept";
    // The compact graph outlives the reference it was reached from.
    node = CORBA::TypeCode::_nil();
    EXPECT_EQ(again->member_count(), 2u);
}

TEST(TypeCode, StaticTypeCodesIgnoreCounting)
{
    CORBA::TypeCode_ptr tc = CORBA::TypeCode::_duplicate(T::_tc_Money);
    CORBA::release(tc);
    CORBA::release(tc);
    EXPECT_EQ(T::_tc_Money->member_count(), 2u);
}

} // namespace
