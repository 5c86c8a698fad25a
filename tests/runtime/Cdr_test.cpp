// The CDR streams beyond what omniORB can show: long doubles in binary128,
// wide characters in GIOP 1.1 and 1.0, values the encoder refuses, and
// malformed input the decoder must refuse without reading past its data.
#include <zantic_sys/yvcxx.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

typedef std::vector<unsigned char> Octets;

Octets written(const YV_CDR::OutputStream& out) { return Octets(out.data(), out.data() + out.size()); }

TEST(CdrLongDouble, IsBinary128InEitherByteOrder)
{
    const struct {
        CORBA::LongDouble value;
        Octets big_endian;
    } cases[] = {
        {1.0L, {0x3f, 0xff, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {-2.5L, {0xc0, 0x00, 0x40, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
        {0.1L, {0x3f, 0xfb, 0x99, 0x99, 0x99, 0x99, 0x99, 0x99, 0x99, 0x9a, 0, 0, 0, 0, 0, 0}},
        {__builtin_infl(), {0x7f, 0xff, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(static_cast<double>(c.value));
        for (bool little : {false, true}) {
            YV_CDR::OutputStream out(little);
            out.write_octet(1);
            out.write_longdouble(c.value);
            Octets expected = c.big_endian;
            if (little)
                expected.assign(c.big_endian.rbegin(), c.big_endian.rend());
            expected.insert(expected.begin(), {1, 0, 0, 0, 0, 0, 0, 0});
            EXPECT_EQ(written(out), expected);
            YV_CDR::InputStream in(out.data(), out.size(), little);
            in.read_octet();
            EXPECT_EQ(in.read_longdouble(), c.value);
        }
    }
    // Precision beyond double survives the trip.
    YV_CDR::OutputStream out;
    const CORBA::LongDouble third = 1.0L / 3.0L;
    out.write_longdouble(third);
    YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
    EXPECT_EQ(in.read_longdouble(), third);
}

TEST(CdrWide, Giop11HasFixedCodeUnitsAndCountedTerminator)
{
    YV_CDR::OutputStream be(false);
    be.giop_minor(1);
    be.write_octet(9);
    be.write_wchar(0x20ac);
    be.write_wstring(L"A\U0001F600");
    EXPECT_EQ(written(be), (Octets{9, 0, 0x20, 0xac, 0, 0, 0, 4, 0, 0x41, 0xd8, 0x3d, 0xde, 0x00, 0, 0}));
    YV_CDR::InputStream in(be.data(), be.size(), false);
    in.giop_minor(1);
    in.read_octet();
    EXPECT_EQ(in.read_wchar(), 0x20ac);
    EXPECT_EQ(std::wstring(CORBA::WString_var(in.read_wstring()).in()), L"A\U0001F600");

    YV_CDR::OutputStream le(true);
    le.giop_minor(1);
    le.write_wstring(L"");
    le.write_wchar(L'b');
    EXPECT_EQ(written(le), (Octets{1, 0, 0, 0, 0, 0, 0x62, 0}));
}

TEST(CdrWide, Giop12WritesSurrogatePairsBigEndian)
{
    YV_CDR::OutputStream out(true);
    out.write_wchar(0x1f600);
    out.write_wstring(L"\U0001F600z");
    EXPECT_EQ(written(out), (Octets{4, 0xd8, 0x3d, 0xde, 0x00, 0, 0, 0, 6, 0, 0, 0, 0xd8, 0x3d, 0xde, 0x00, 0, 0x7a}));
    YV_CDR::InputStream in(out.data(), out.size(), true);
    EXPECT_EQ(in.read_wchar(), 0x1f600);
    EXPECT_EQ(std::wstring(CORBA::WString_var(in.read_wstring()).in()), L"\U0001F600z");
}

TEST(CdrWide, EncoderRefusesWhatCannotTravel)
{
    const struct {
        const char* what;
        unsigned giop_minor;
        std::function<void(YV_CDR::OutputStream&)> write;
        bool data_conversion;  // else BAD_PARAM
    } cases[] = {
        {"lone surrogate wchar", 2, [](YV_CDR::OutputStream& o) { o.write_wchar(0xd800); }, true},
        {"lone surrogate in wstring", 2, [](YV_CDR::OutputStream& o) { o.write_wstring(L"a\xdc00"); }, true},
        {"beyond Unicode", 2, [](YV_CDR::OutputStream& o) { o.write_wchar(static_cast<CORBA::WChar>(0x110000)); }, true},
        {"beyond the basic plane in GIOP 1.1", 1, [](YV_CDR::OutputStream& o) { o.write_wchar(0x1f600); }, true},
        {"wchar in GIOP 1.0", 0, [](YV_CDR::OutputStream& o) { o.write_wchar(L'a'); }, false},
        {"wstring in GIOP 1.0", 0, [](YV_CDR::OutputStream& o) { o.write_wstring(L"a"); }, false},
        {"null wstring", 2, [](YV_CDR::OutputStream& o) { o.write_wstring(nullptr); }, false},
        {"wstring over its bound", 2, [](YV_CDR::OutputStream& o) { o.write_wstring(L"abc", 2); }, false},
        {"string over its bound", 2, [](YV_CDR::OutputStream& o) { o.write_string("abc", 2); }, false},
        {"null string", 2, [](YV_CDR::OutputStream& o) { o.write_string(nullptr); }, false},
        {"fixed too large", 2, [](YV_CDR::OutputStream& o) { o.write_fixed(CORBA::Fixed("1000"), 5, 2); }, true},
        {"fixed of 32 digits", 2, [](YV_CDR::OutputStream& o) { o.write_fixed(CORBA::Fixed(1), 32, 0); }, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        YV_CDR::OutputStream out;
        out.giop_minor(c.giop_minor);
        if (c.data_conversion)
            EXPECT_THROW(c.write(out), CORBA::DATA_CONVERSION);
        else
            EXPECT_THROW(c.write(out), CORBA::BAD_PARAM);
    }
}

TEST(CdrFixed, CutsDigitsAfterTheScaleAndPadsEvenDigitCounts)
{
    YV_CDR::OutputStream out;
    out.write_fixed(CORBA::Fixed("-1.259"), 4, 2);
    out.write_fixed(CORBA::Fixed(0), 0, 0);
    out.write_fixed(CORBA::Fixed("3.5"), 3, 2);
    EXPECT_EQ(written(out), (Octets{0x00, 0x12, 0x5d, 0x0c, 0x35, 0x0c}));
    YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
    EXPECT_EQ(in.read_fixed(4, 2), CORBA::Fixed("-1.25"));
    EXPECT_EQ(in.read_fixed(0, 0), CORBA::Fixed(0));
    CORBA::Fixed f = in.read_fixed(3, 2);
    EXPECT_EQ(f, CORBA::Fixed("3.5"));
    EXPECT_EQ(f.fixed_scale(), 1);
}

// Each input is malformed: reading it as told raises MARSHAL with the minor
// code given, and never reads past the data (the asan build checks that:
// the octets are copied into a buffer of exactly their size).
TEST(CdrDecoder, RefusesMalformedInput)
{
    typedef std::function<void(YV_CDR::InputStream&)> Read;
    const auto wide = [](unsigned minor, Read r) {
        return Read([minor, r](YV_CDR::InputStream& in) {
            in.giop_minor(minor);
            r(in);
        });
    };
    const auto string = [](YV_CDR::InputStream& in) { CORBA::String_var s = in.read_string(); };
    const auto wstring = [](YV_CDR::InputStream& in) { CORBA::WString_var s = in.read_wstring(); };
    const auto wchar = [](YV_CDR::InputStream& in) { in.read_wchar(); };
    typedef YV_Cxx::UnboundedSequence<CORBA::Long> LongSeq;
    typedef YV_Cxx::UnboundedSequence<CORBA::String_var> StringSeq;
    const struct {
        const char* what;
        Octets octets;
        Read read;
        CORBA::ULong minor;
    } cases[] = {
        {"truncated short", {1}, [](YV_CDR::InputStream& in) { in.read_short(); }, YV_CDR::minor_end_of_data},
        {"truncated long", {0, 0, 1}, [](YV_CDR::InputStream& in) { in.read_long(); }, YV_CDR::minor_end_of_data},
        {"truncated double", {0, 0, 0, 0, 0, 0, 0}, [](YV_CDR::InputStream& in) { in.read_double(); }, YV_CDR::minor_end_of_data},
        {"truncated long double", Octets(15), [](YV_CDR::InputStream& in) { in.read_longdouble(); }, YV_CDR::minor_end_of_data},
        {"padding beyond the data", {7, 0, 0}, [](YV_CDR::InputStream& in) { in.read_octet(); in.read_long(); }, YV_CDR::minor_end_of_data},
        {"empty", {}, [](YV_CDR::InputStream& in) { in.read_octet(); }, YV_CDR::minor_end_of_data},
        {"boolean 2", {2}, [](YV_CDR::InputStream& in) { in.read_boolean(); }, YV_CDR::minor_bad_boolean},
        {"boolean 2 in a sequence", {0, 0, 0, 2, 1, 2}, [](YV_CDR::InputStream& in) { YV_Cxx::UnboundedSequence<CORBA::Boolean> s; YV_Cxx::Marshal<decltype(s)>::read(in, s); }, YV_CDR::minor_bad_boolean},
        {"string length beyond the data", {0, 0, 0, 9, 'a', 0}, string, YV_CDR::minor_bad_length},
        {"string length zero", {0, 0, 0, 0}, string, YV_CDR::minor_bad_string},
        {"string without its NUL", {0, 0, 0, 2, 'a', 'b'}, string, YV_CDR::minor_bad_string},
        {"string over its bound", {0, 0, 0, 4, 'a', 'b', 'c', 0}, [](YV_CDR::InputStream& in) { CORBA::String_var s = in.read_string(2); }, YV_CDR::minor_bound},
        {"huge sequence count", {0xff, 0xff, 0xff, 0xff, 0, 0, 0, 1}, [](YV_CDR::InputStream& in) { LongSeq s; YV_Cxx::Marshal<LongSeq>::read(in, s); }, YV_CDR::minor_bad_length},
        {"string sequence count beyond the data", {0, 0, 0, 2, 0, 0, 0, 1, 0}, [](YV_CDR::InputStream& in) { StringSeq s; YV_Cxx::Marshal<StringSeq>::read(in, s); }, YV_CDR::minor_bad_length},
        {"sequence over its bound", {0, 0, 0, 3, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 3}, [](YV_CDR::InputStream& in) { YV_Cxx::BoundedSequence<CORBA::Long, 2> s; YV_Cxx::Marshal<decltype(s)>::read(in, s); }, YV_CDR::minor_bound},
        {"truncated array", {0, 0, 0, 1, 0, 0}, [](YV_CDR::InputStream& in) { CORBA::Long a[2]; YV_Cxx::Marshal<CORBA::Long[2]>::read(in, a); }, YV_CDR::minor_end_of_data},
        {"bad encapsulation byte order", {0, 0, 0, 2, 2, 0}, [](YV_CDR::InputStream& in) { in.encapsulation(); }, YV_CDR::minor_bad_byte_order},
        {"empty encapsulation", {0, 0, 0, 0}, [](YV_CDR::InputStream& in) { in.encapsulation(); }, YV_CDR::minor_bad_length},
        {"encapsulation beyond the data", {0, 0, 0, 5, 0, 0}, [](YV_CDR::InputStream& in) { in.encapsulation(); }, YV_CDR::minor_bad_length},
        {"fixed digit nibble over 9", {0x1a, 0x3c}, [](YV_CDR::InputStream& in) { in.read_fixed(3, 0); }, YV_CDR::minor_bad_fixed},
        {"fixed sign nibble 0xF", {0x12, 0x3f}, [](YV_CDR::InputStream& in) { in.read_fixed(3, 0); }, YV_CDR::minor_bad_fixed},
        {"fixed pad nibble not zero", {0x12, 0x3c}, [](YV_CDR::InputStream& in) { in.read_fixed(2, 0); }, YV_CDR::minor_bad_fixed},
        {"fixed truncated", {0x12}, [](YV_CDR::InputStream& in) { in.read_fixed(3, 0); }, YV_CDR::minor_end_of_data},
        {"fixed of 32 digits", Octets(17), [](YV_CDR::InputStream& in) { in.read_fixed(32, 0); }, YV_CDR::minor_bad_fixed},
        {"wstring odd octet length", {0, 0, 0, 3, 0, 0x41, 0}, wstring, YV_CDR::minor_bad_length},
        {"wstring length beyond the data", {0, 0, 0, 8, 0, 0x41}, wstring, YV_CDR::minor_bad_length},
        {"wstring lone high surrogate", {0, 0, 0, 2, 0xd8, 0x3d}, wstring, YV_CDR::minor_bad_wchar},
        {"wstring lone low surrogate", {0, 0, 0, 4, 0xde, 0, 0, 0x41}, wstring, YV_CDR::minor_bad_wchar},
        {"wstring high surrogate then letter", {0, 0, 0, 4, 0xd8, 0x3d, 0, 0x41}, wstring, YV_CDR::minor_bad_wchar},
        {"wstring NUL inside", {0, 0, 0, 4, 0, 0x41, 0, 0}, wstring, YV_CDR::minor_bad_wchar},
        {"wstring over its bound", {0, 0, 0, 4, 0, 0x41, 0, 0x42}, [](YV_CDR::InputStream& in) { CORBA::WString_var s = in.read_wstring(1); }, YV_CDR::minor_bound},
        {"wchar octet count 3", {3, 0, 0x41, 0}, wchar, YV_CDR::minor_bad_wchar},
        {"wchar octet count 0", {0}, wchar, YV_CDR::minor_bad_wchar},
        {"wchar two characters", {4, 0, 0x41, 0, 0x42}, wchar, YV_CDR::minor_bad_wchar},
        {"wchar lone surrogate", {2, 0xdc, 0}, wchar, YV_CDR::minor_bad_wchar},
        {"wchar truncated", {2, 0}, wchar, YV_CDR::minor_end_of_data},
        {"GIOP 1.1 wstring without terminator", {0, 0, 0, 2, 0, 0x41, 0, 0x42}, wide(1, wstring), YV_CDR::minor_bad_string},
        {"GIOP 1.1 wstring length zero", {0, 0, 0, 0}, wide(1, wstring), YV_CDR::minor_bad_string},
        {"GIOP 1.1 wstring beyond the data", {0x40, 0, 0, 0, 0, 0}, wide(1, wstring), YV_CDR::minor_bad_length},
        {"GIOP 1.1 wchar surrogate", {0xd8, 0}, wide(1, wchar), YV_CDR::minor_bad_wchar},
        {"GIOP 1.0 wchar", {0, 0x41}, wide(0, wchar), YV_CDR::minor_bad_wchar},
        {"GIOP 1.0 wstring", {0, 0, 0, 0}, wide(0, wstring), YV_CDR::minor_bad_wchar},
        {"principal beyond the data", {0, 0, 0, 9, 1}, [](YV_CDR::InputStream& in) { CORBA::Principal_var p; YV_Cxx::Marshal<CORBA::Principal_var>::read(in, p); }, YV_CDR::minor_bad_length},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        // Exactly the octets, so that a read past them is an overflow.
        std::unique_ptr<unsigned char[]> data(new unsigned char[c.octets.size() + (c.octets.empty() ? 1 : 0)]);
        std::copy(c.octets.begin(), c.octets.end(), data.get());
        YV_CDR::InputStream in(data.get(), c.octets.size(), false);
        try {
            c.read(in);
            ADD_FAILURE() << "no MARSHAL";
        } catch (const CORBA::MARSHAL& e) {
            EXPECT_EQ(e.minor(), c.minor);
            EXPECT_EQ(e.completed(), CORBA::COMPLETED_NO);
        }
    }
}

TEST(CdrDecoder, WideCharactersHonourTheByteOrderMark)
{
    // The mark makes no character; the pair after it is little-endian too.
    const Octets pair = {0, 0, 0, 6, 0xff, 0xfe, 0x3d, 0xd8, 0, 0xde, 4, 0xfe, 0xff, 0x20, 0xac};
    YV_CDR::InputStream in3(pair.data(), pair.size(), false);
    EXPECT_EQ(std::wstring(CORBA::WString_var(in3.read_wstring()).in()), L"\U0001F600");
    EXPECT_EQ(in3.read_wchar(), 0x20ac);
}

} // namespace
