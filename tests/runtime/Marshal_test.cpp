// Marshal<T> of the mapping's types and the streamables that travel
// through it: every value written in either byte order reads back equal.
#include "MappingTypes.hh"

#include <gtest/gtest.h>

#include <string>

namespace {

// Writes `v` after one octet (so that alignment shows) in both byte orders
// and GIOP 1.1 and 1.2, reads it back into `into` and answers the octets
// left (expected 0).
template <class T, class Check>
void round_trip(const T& v, Check check)
{
    for (bool little : {false, true}) {
        for (unsigned minor : {1u, 2u}) {
            SCOPED_TRACE(std::string(little ? "little" : "big") + "-endian, GIOP 1." + std::to_string(minor));
            YV_CDR::OutputStream out(little);
            out.giop_minor(minor);
            out.write_octet(0x5a);
            YV_Cxx::Marshal<T>::write(out, v);
            YV_CDR::InputStream in(out.data(), out.size(), little);
            in.giop_minor(minor);
            EXPECT_EQ(in.read_octet(), 0x5a);
            T back{};
            YV_Cxx::Marshal<T>::read(in, back);
            check(back);
            EXPECT_EQ(in.remaining(), 0u);
        }
    }
}

TEST(Marshal, RoundTripsOfTheMappingTypes)
{
    round_trip(CORBA::String_var("text"), [](const CORBA::String_var& v) { EXPECT_STREQ(v, "text"); });
    round_trip(CORBA::String_var(), [](const CORBA::String_var& v) { EXPECT_STREQ(v, "") << "null travels as empty"; });
    round_trip(CORBA::WString_var(L"w\u00e9\U0001F600"),
               [](const CORBA::WString_var& v) { EXPECT_EQ(std::wstring(v.in()), L"w\u00e9\U0001F600"); });
    round_trip(CORBA::WString_var(), [](const CORBA::WString_var& v) { EXPECT_EQ(std::wstring(v.in()), L""); });
    round_trip(YV_Cxx::FixedT<9, 4>("-12345.6789"), [](const CORBA::Fixed& v) { EXPECT_EQ(v, CORBA::Fixed("-12345.6789")); });
    round_trip(static_cast<CORBA::LongDouble>(-1.5e300L), [](CORBA::LongDouble v) { EXPECT_EQ(v, -1.5e300L); });
    round_trip(static_cast<CORBA::WChar>(0x20ac), [](CORBA::WChar v) { EXPECT_EQ(v, 0x20ac); });

    Bank::Names names;
    names.length(3);
    names[0] = "a";
    names[2] = "c";
    round_trip(names, [](const Bank::Names& v) {
        ASSERT_EQ(v.length(), 3u);
        EXPECT_STREQ(v[1], "");
        EXPECT_STREQ(v[2], "c");
    });

    YV_Cxx::UnboundedSequence<CORBA::WString_var> wide;
    wide.length(2);
    wide[0] = L"x";
    wide[1] = L"yz";
    round_trip(wide, [](const YV_Cxx::UnboundedSequence<CORBA::WString_var>& v) { EXPECT_EQ(std::wstring(v[1].in()), L"yz"); });

    YV_Cxx::UnboundedSequence<Bank::Grid> grids;
    grids.length(2);
    grids[1][1][2] = -9;
    round_trip(grids, [](const YV_Cxx::UnboundedSequence<Bank::Grid>& v) {
        ASSERT_EQ(v.length(), 2u);
        EXPECT_EQ(v[1][1][2], -9);
        EXPECT_EQ(v[0][0][0], 0);
    });

    YV_Cxx::BoundedSequence<YV_Cxx::FixedT<3, 1>, 4> amounts;
    amounts.length(2);
    amounts[0] = CORBA::Fixed("12.3");
    amounts[1] = -1;
    round_trip(amounts, [](const YV_Cxx::BoundedSequence<YV_Cxx::FixedT<3, 1>, 4>& v) {
        ASSERT_EQ(v.length(), 2u);
        EXPECT_EQ(v[0], CORBA::Fixed("12.3"));
        EXPECT_EQ(v[1], CORBA::Fixed(-1));
    });

    YV_Cxx::UnboundedSequence<CORBA::WChar> letters;
    letters.length(2);
    letters[0] = L'a';
    letters[1] = 0xe9;
    round_trip(letters, [](const YV_Cxx::UnboundedSequence<CORBA::WChar>& v) { EXPECT_EQ(v[1], 0xe9); });

    YV_Cxx::UnboundedSequence<Bank::Owner> owners;
    owners.length(2);
    owners[0].name = "ann";
    owners[0].ids.length(1);
    owners[0].ids[0] = 7;
    round_trip(owners, [](const YV_Cxx::UnboundedSequence<Bank::Owner>& v) {
        ASSERT_EQ(v.length(), 2u);
        EXPECT_STREQ(v[0].name, "ann");
        EXPECT_EQ(v[0].ids[0], 7);
        EXPECT_EQ(v[1].ids.length(), 0u);
    });
}

TEST(Marshal, ArraysAndBoundedStrings)
{
    for (bool little : {false, true}) {
        YV_CDR::OutputStream out(little);
        const CORBA::Double cube[2][2][2] = {{{1, 2}, {3, 4}}, {{5, 6}, {7, 8}}};
        YV_Cxx::Marshal<CORBA::Double[2][2][2]>::write(out, cube);
        const CORBA::Boolean flags[3] = {true, false, true};
        YV_Cxx::Marshal<CORBA::Boolean[3]>::write(out, flags);
        const CORBA::String_var words[2][2] = {{"a", "b"}, {"c", "d"}};
        YV_Cxx::Marshal<CORBA::String_var[2][2]>::write(out, words);
        YV_Cxx::write_bounded_string(out, "four", 4);
        YV_Cxx::write_bounded_string(out, L"wide", 4);
        EXPECT_THROW(YV_Cxx::write_bounded_string(out, "fives", 4), CORBA::BAD_PARAM);

        YV_CDR::InputStream in(out.data(), out.size(), little);
        CORBA::Double cube_back[2][2][2];
        YV_Cxx::Marshal<CORBA::Double[2][2][2]>::read(in, cube_back);
        EXPECT_EQ(cube_back[1][0][1], 6);
        CORBA::Boolean flags_back[3];
        YV_Cxx::Marshal<CORBA::Boolean[3]>::read(in, flags_back);
        EXPECT_TRUE(flags_back[2]);
        CORBA::String_var words_back[2][2];
        YV_Cxx::Marshal<CORBA::String_var[2][2]>::read(in, words_back);
        EXPECT_STREQ(words_back[1][0], "c");
        CORBA::String_var four;
        YV_Cxx::read_bounded_string(in, four, 4);
        EXPECT_STREQ(four, "four");
        CORBA::WString_var wide;
        YV_CDR::InputStream again = in;
        EXPECT_THROW(YV_Cxx::read_bounded_string(again, wide, 3), CORBA::MARSHAL);
        YV_Cxx::read_bounded_string(in, wide, 4);
        EXPECT_EQ(std::wstring(wide.in()), L"wide");
        EXPECT_EQ(in.remaining(), 0u);
    }
    static_assert(YV_Cxx::Marshal<CORBA::Long[2][3]>::min_size == 24, "six longs");
    static_assert(!YV_Cxx::HasMarshal<Bank::Money>::value, "Money has no marshaling");
    static_assert(!YV_Cxx::HasMarshal<YV_Cxx::UnboundedSequence<Bank::Money>>::value, "nor its sequences");
}

TEST(Marshal, NullValuesAndPrincipals)
{
    YV_CDR::OutputStream out;
    CORBA::ValueBase_var value;
    YV_Cxx::Marshal<CORBA::ValueBase_var>::write(out, value);
    // A principal is an empty octet sequence on the way out; one read is
    // skipped.
    YV_Cxx::Marshal<CORBA::Principal_var>::write(out, nullptr);
    out.write_ulong(2);
    out.write_octet(1);
    out.write_octet(2);
    out.write_octet(3);
    YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
    YV_Cxx::Marshal<CORBA::ValueBase_var>::read(in, value);
    EXPECT_EQ(value.in(), nullptr);
    CORBA::Principal_var p;
    YV_Cxx::Marshal<CORBA::Principal_var>::read(in, p);
    YV_Cxx::Marshal<CORBA::Principal_var>::read(in, p);
    EXPECT_EQ(in.read_octet(), 3);
}

TEST(Streamables, WriteAndReadTheirValues)
{
    CORBA::Long number = 42;
    char* text = CORBA::string_dup("hello");
    Bank::Names names;
    names.length(1);
    names[0] = "n";
    CORBA::Long grid[2][3] = {{1, 2, 3}, {4, 5, 6}};
    YV_Cxx::FixedT<4, 2> price = CORBA::Fixed("12.34");

    YV_CDR::OutputStream out;
    YV_Cxx::LongStreamable(&number).yv_write(out);
    YV_Cxx::StringStreamable(&text, YV_Cxx::usage_borrow).yv_write(out);
    YV_Cxx::VarStreamable<Bank::Names>(&names).yv_write(out);
    YV_Cxx::ArrayStreamable<Bank::Grid>(&grid).yv_write(out);
    YV_Cxx::BasicStreamable<YV_Cxx::FixedT<4, 2>>(&price).yv_write(out);
    YV_Cxx::WStringStreamable wide;
    wide.extract() = CORBA::wstring_dup(L"w");
    wide.yv_write(out);
    CORBA::string_free(text);

    YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
    // Into a bound value: overwritten.
    CORBA::Long number_back = 0;
    YV_Cxx::LongStreamable(&number_back).yv_read(in);
    EXPECT_EQ(number_back, 42);
    // Into a string variable: the old string is freed, the new one kept.
    CORBA::String_var text_back = "old";
    YV_Cxx::StringStreamable(&text_back).yv_read(in);
    EXPECT_STREQ(text_back, "hello");
    // Into an empty pointer slot: allocated, owned by the slot's owner.
    Bank::Names_var names_back;
    YV_Cxx::VarStreamable<Bank::Names>(&names_back).yv_read(in);
    ASSERT_NE(names_back.ptr(), nullptr);
    EXPECT_STREQ(names_back[0], "n");
    Bank::Grid_var grid_back;
    YV_Cxx::ArrayStreamable<Bank::Grid>(&grid_back).yv_read(in);
    EXPECT_EQ(grid_back[1][2], 6);
    YV_Cxx::BasicStreamable<YV_Cxx::FixedT<4, 2>> price_back;
    price_back.yv_read(in);
    EXPECT_EQ(price_back.extract(), CORBA::Fixed("12.34"));
    // A streamable of its own keeps what it read.
    YV_Cxx::WStringStreamable wide_back;
    wide_back.yv_read(in);
    EXPECT_EQ(std::wstring(wide_back.extract()), L"w");
    EXPECT_EQ(in.remaining(), 0u);
}

TEST(Streamables, RefuseWhatCannotTravel)
{
    YV_CDR::OutputStream out;
    char* none = nullptr;
    EXPECT_THROW(YV_Cxx::StringStreamable(&none, YV_Cxx::usage_borrow).yv_write(out), CORBA::BAD_PARAM);
    Bank::Names* no_names = nullptr;
    EXPECT_THROW(YV_Cxx::VarStreamable<Bank::Names>(&no_names, YV_Cxx::usage_borrow).yv_write(out), CORBA::BAD_PARAM);
    Bank::Money money{1, 2};
    EXPECT_THROW(YV_Cxx::VarStreamable<Bank::Money>(&money).yv_write(out), CORBA::MARSHAL);
    YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
    EXPECT_THROW(YV_Cxx::VarStreamable<Bank::Money>(&money).yv_read(in), CORBA::MARSHAL);
    // A failed read leaves an empty slot empty.
    const unsigned char truncated[] = {0, 0, 0, 5, 1};
    YV_CDR::InputStream short_in(truncated, sizeof truncated, false);
    Bank::Names* slot = nullptr;
    {
        YV_Cxx::VarStreamable<Bank::Names> s(&slot, YV_Cxx::usage_borrow);
        EXPECT_THROW(s.yv_read(short_in), CORBA::MARSHAL);
    }
    EXPECT_EQ(slot, nullptr);
}

} // namespace
