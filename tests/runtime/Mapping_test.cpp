// The C++ mapping support that generated code relies on: ownership of
// strings, sequences, _var and _out types, anys, streamables' bindings,
// type codes and the exception holder.
#include "MappingTypes.hh"

#include <omg/Messaging.hh>

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(StringVar, AdoptsCopiesAndHandsOver)
{
    char* raw = CORBA::string_dup("raw");
    CORBA::String_var adopted = raw;
    EXPECT_EQ(adopted.in(), raw);
    const char* literal = "lit";
    CORBA::String_var copied = literal;
    EXPECT_NE(copied.in(), literal);
    EXPECT_STREQ(copied.in(), "lit");
    CORBA::String_var twin = copied;
    EXPECT_NE(twin.in(), copied.in());
    char*& slot = twin.out();
    EXPECT_EQ(slot, nullptr);
    slot = CORBA::string_dup("new");
    EXPECT_STREQ(twin.in(), "new");
    char* taken = twin._retn();
    EXPECT_EQ(twin.in(), nullptr);
    CORBA::string_free(taken);
    EXPECT_EQ(CORBA::string_dup(nullptr), nullptr);
}

TEST(StringOut, ClearsTheCallersSlot)
{
    CORBA::String_var v = "old";
    {
        CORBA::String_out out(v);
        EXPECT_EQ(v.in(), nullptr);
        out = "copied";
    }
    EXPECT_STREQ(v.in(), "copied");
    char* p = CORBA::string_dup("x");
    char* keep = p;
    CORBA::String_out out(p);
    EXPECT_EQ(p, nullptr);
    CORBA::string_free(keep);
}

TEST(Sequence, LengthBoundsAndDeepCopies)
{
    Bank::Names names;
    names.length(3);
    EXPECT_EQ(names[2].in(), nullptr);
    names[0] = "a";
    names[1] = CORBA::string_dup("b");
    Bank::Names copy = names;
    copy[0] = "changed";
    EXPECT_STREQ(names[0].in(), "a");
    names.length(1);
    names.length(2);
    EXPECT_EQ(names[1].in(), nullptr) << "a shrunk element is gone";
    Bank::Names moved = std::move(copy);
    EXPECT_EQ(copy.length(), 0u);
    EXPECT_STREQ(moved[1].in(), "b");

    YV_Cxx::BoundedSequence<CORBA::Long, 2> bounded;
    EXPECT_EQ(bounded.maximum(), 2u);
    bounded.length(2);
    EXPECT_THROW(bounded.length(3), CORBA::BAD_PARAM);

    CORBA::Long* buffer = YV_Cxx::UnboundedSequence<CORBA::Long>::allocbuf(3);
    buffer[0] = 4;
    buffer[1] = 5;
    YV_Cxx::UnboundedSequence<CORBA::Long> from_buffer(3, 2, buffer, true);
    EXPECT_EQ(from_buffer.length(), 2u);
    EXPECT_EQ(from_buffer[1], 5);
}

// Elements of array type cannot be assigned as a whole: every copy, growth,
// shrink and move of the sequence works on them element by element.
TEST(Sequence, OfArraysCopiesElementWise)
{
    typedef CORBA::Long Triple[3];
    typedef CORBA::String_var Names2x2[2][2];

    YV_Cxx::UnboundedSequence<Triple> triples;
    triples.length(1);
    triples[0][2] = 7;
    triples.length(40); // grows past the first buffer: elements move
    EXPECT_EQ(triples[0][2], 7);
    EXPECT_EQ(triples[39][0], 0);
    YV_Cxx::UnboundedSequence<Triple> copy = triples;
    copy[0][2] = 8;
    EXPECT_EQ(triples[0][2], 7);
    copy = triples;
    EXPECT_EQ(copy[0][2], 7);
    triples.length(0);
    triples.length(1);
    EXPECT_EQ(triples[0][2], 0) << "a shrunk element is gone";

    Triple* buffer = YV_Cxx::UnboundedSequence<Triple>::allocbuf(2);
    buffer[1][1] = 5;
    YV_Cxx::UnboundedSequence<Triple> from_buffer(2, 2, buffer, true);
    EXPECT_EQ(from_buffer[1][1], 5);

    YV_Cxx::BoundedSequence<Names2x2, 4> names;
    names.length(2);
    names[1][1][0] = "deep";
    YV_Cxx::BoundedSequence<Names2x2, 4> names_copy(names);
    names_copy[1][1][0] = "changed";
    EXPECT_STREQ(names[1][1][0].in(), "deep");
    names.length(1);
    names.length(2);
    EXPECT_EQ(names[1][1][0].in(), nullptr);
}

TEST(VarTypes, OwnAndHandOverTheirValues)
{
    Bank::Names_var seq = new Bank::Names;
    seq->length(1);
    seq[0u] = "x";
    EXPECT_STREQ(seq[0u].in(), "x");
    Bank::Names_var copy = seq;
    EXPECT_NE(copy.ptr(), seq.ptr());
    {
        Bank::Names_out out(seq);
        EXPECT_EQ(seq.ptr(), nullptr);
        out = new Bank::Names(*copy);
    }
    EXPECT_EQ(seq->length(), 1u);
    delete seq._retn();

    Bank::Money_var fixed;
    fixed->units = 3;
    Bank::Money_var fixed_copy = fixed;
    fixed_copy->units = 4;
    EXPECT_EQ(fixed->units, 3);

    Bank::Grid_var grid = Bank::Grid_alloc();
    grid[1][2] = 8;
    Bank::Grid_var grid_copy = grid;
    grid_copy[1][2] = 9;
    EXPECT_EQ(grid[1][2], 8);
}

int local_objects_destroyed = 0;

class LocalObject : public virtual CORBA::Object {
public:
    ~LocalObject() override { ++local_objects_destroyed; }
};

TEST(ObjectReferences, CountReferences)
{
    local_objects_destroyed = 0;
    CORBA::Object_var a = new LocalObject;
    {
        CORBA::Object_var b = a;
        CORBA::Object_var c = CORBA::Object::_duplicate(a.in());
        CORBA::Object_out out(c);
        EXPECT_TRUE(CORBA::is_nil(c.in()));
        EXPECT_EQ(local_objects_destroyed, 0);
    }
    EXPECT_EQ(local_objects_destroyed, 0);
    a = CORBA::Object::_nil();
    EXPECT_EQ(local_objects_destroyed, 1);
}

TEST(Any, InsertsExtractsAndCopies)
{
    CORBA::Any a;
    a <<= static_cast<CORBA::Short>(-3);
    CORBA::Short s = 0;
    CORBA::Long l = 0;
    EXPECT_TRUE(a >>= s);
    EXPECT_EQ(s, -3);
    EXPECT_FALSE(a >>= l);
    CORBA::TypeCode_var tc = a.type();
    EXPECT_EQ(tc->kind(), CORBA::tk_short);

    a <<= CORBA::Any::from_boolean(true);
    CORBA::Boolean b = false;
    CORBA::Octet o = 0;
    EXPECT_TRUE(a >>= CORBA::Any::to_boolean(b));
    EXPECT_TRUE(b);
    EXPECT_FALSE(a >>= CORBA::Any::to_octet(o));

    a <<= "text";
    CORBA::Any copy = a;
    const char* p1 = nullptr;
    const char* p2 = nullptr;
    ASSERT_TRUE(a >>= p1);
    ASSERT_TRUE(copy >>= p2);
    EXPECT_STREQ(p2, "text");
    EXPECT_NE(p1, p2);

    CORBA::Any nested;
    nested <<= a;
    const CORBA::Any* inner = nullptr;
    ASSERT_TRUE(nested >>= inner);
    EXPECT_TRUE(*inner >>= p1);

    CORBA::Any void_any(CORBA::_tc_void, 0);
    EXPECT_EQ(void_any.yv_get_streamable(), nullptr);
    CORBA::TypeCode_var void_tc = void_any.type();
    EXPECT_EQ(void_tc->kind(), CORBA::tk_void);
    CORBA::Long value = 12;
    CORBA::Any typed(CORBA::_tc_long, &value);
    EXPECT_TRUE(typed >>= l);
    EXPECT_EQ(l, 12);
    EXPECT_THROW(CORBA::Any(CORBA::_tc_Object, &value), CORBA::BAD_PARAM);
}

TEST(Streamables, BindToTheirStorageAsDocumented)
{
    // A raw pointer slot is cleared and owned...
    char* slot = reinterpret_cast<char*>(0x1);
    {
        YV_Cxx::StringStreamable owned(&slot, 0, 0x24);
        EXPECT_EQ(slot, nullptr);
        owned.extract() = CORBA::string_dup("freed by the streamable");
        EXPECT_TRUE(owned.yv_owns_value());
    }
    // ...unless borrowed; a value variable or a _var keeps its value.
    char* kept = CORBA::string_dup("kept");
    {
        YV_Cxx::StringStreamable borrowed(&kept, YV_Cxx::usage_borrow);
        EXPECT_FALSE(borrowed.yv_owns_value());
    }
    EXPECT_STREQ(kept, "kept");
    CORBA::string_free(kept);
    CORBA::Long number = 5;
    {
        YV_Cxx::BasicStreamable<CORBA::Long> on_value(&number, 0, 0x21);
        EXPECT_EQ(on_value.extract(), 5);
    }
    Bank::Owner_var var;
    {
        YV_Cxx::VarStreamable<Bank::Owner> on_var(&var, 0, 0x24);
        on_var.extract() = new Bank::Owner;
    }
    EXPECT_NE(var.ptr(), nullptr);

    // Copies are deep and between streamables of one class only.
    Bank::Owner source;
    source.name = "source";
    Bank::Owner* target = nullptr;
    YV_Cxx::VarStreamable<Bank::Owner> from(&source);
    YV_Cxx::VarStreamable<Bank::Owner> to(&target);
    to.yv_copy_value(from);
    ASSERT_NE(target, nullptr);
    EXPECT_STREQ(target->name.in(), "source");
    EXPECT_NE(target->name.in(), source.name.in());
    YV_Cxx::VarStreamable<Bank::Money> other;
    EXPECT_THROW(to.yv_copy_value(other), CORBA::MARSHAL);
    std::unique_ptr<YV_Streamable> clone = from.yv_clone();
    ASSERT_NE(YV_Cxx::VarStreamable<Bank::Owner>::_downcast(clone.get()), nullptr);
    EXPECT_EQ(YV_Cxx::VarStreamable<Bank::Money>::_downcast(clone.get()), nullptr);
    EXPECT_EQ(YV_Cxx::VarStreamable<Bank::Money>::_downcast(nullptr), nullptr);
}

TEST(TypeCodes, BoundedStringsAndKinds)
{
    static const YV_Cxx::StringTypeCode bounded(10, 0);
    static const YV_Cxx::StringTypeCode wide(3, 1);
    CORBA::TypeCode_ptr tc = bounded;
    EXPECT_EQ(tc->kind(), CORBA::tk_string);
    EXPECT_EQ(tc->length(), 10u);
    EXPECT_EQ(static_cast<CORBA::TypeCode_ptr>(wide)->kind(), CORBA::tk_wstring);
    EXPECT_THROW(CORBA::_tc_long->length(), CORBA::TypeCode::BadKind);
    EXPECT_FALSE(tc->equal(CORBA::_tc_string));
    CORBA::release(tc);
    EXPECT_EQ(tc->length(), 10u) << "a static type code outlives release";
}

TEST(ExceptionHolder, RaisesWhatItHoldsAndCopies)
{
    Messaging::ExceptionHolder_var holder =
        new Messaging::ExceptionHolder(std::make_exception_ptr(Bank::Refused("held")));
    EXPECT_FALSE(holder->is_system_exception());
    Messaging::ExceptionHolder* copy = nullptr;
    YV_Cxx::ValueStreamable<Messaging::ExceptionHolder> from(&holder);
    YV_Cxx::ValueStreamable<Messaging::ExceptionHolder> to(&copy);
    to.yv_copy_value(from);
    ASSERT_NE(copy, nullptr);
    EXPECT_NE(copy, holder.ptr());
    try {
        copy->raise_exception();
        FAIL() << "no exception";
    } catch (const Bank::Refused& e) {
        EXPECT_STREQ(e.reason.in(), "held");
    }
}

} // namespace
