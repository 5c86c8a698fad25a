// Anys in CDR: omniORB's anys decode to encoded anys of the expected type
// that travel on unchanged or transcoded into another byte order and
// alignment, compare equal by type code whatever form they hold, and
// malformed anys give MARSHAL.
#include "CdrVectors.hh"
#include "VectorTypes.hh"

#include <gtest/gtest.h>

#include <zantic_sys/YV_Cxx/AnyInsert.h>

#include <algorithm>
#include <functional>

namespace {

struct AnyVector {
    const char* name;
    CORBA::TypeCode_ptr type;
    // Where omniORB wrote -2 as the default index of a union without
    // default member (we write -1).
    std::size_t no_default_at;
};

const AnyVector any_vectors[] = {
    {"any_point", V::_tc_Point, 0},
    {"any_u_default", V::_tc_U, 0},
    {"any_u_point", V::_tc_U, 0},
    {"any_seqseq", V::_tc_LongSeqSeq, 0},
    {"any_wide", V::_tc_Wide, 0},
    {"any_wstring", CORBA::_tc_wstring, 0},
    {"any_node", V::_tc_Node, 0},
    {"any_tree", V::_tc_Tree, 0},
    {"any_refused", V::_tc_Refused, 0},
    {"any_typecode", CORBA::_tc_TypeCode, 0},
    {"any_any", CORBA::_tc_any, 0},
    {"any_kinds", V::_tc_Kinds, 792},
};

CORBA::Any read_any(const Octets& v, bool little)
{
    YV_CDR::InputStream in = stream_over(v, little);
    CORBA::Any a;
    YV_Cxx::Marshal<CORBA::Any>::read(in, a);
    EXPECT_EQ(in.remaining(), 0u);
    return a;
}

TEST(AnyCdr, OmniOrbAnysTravelOnUnchangedOrTranscoded)
{
    for (const AnyVector& v : any_vectors) {
        SCOPED_TRACE(v.name);
        const CORBA::Any le = read_any(cdr_vector(v.name, true), true);
        const CORBA::Any be = read_any(cdr_vector(v.name, false), false);
        CORBA::TypeCode_var type = le.type();
        EXPECT_TRUE(type->equal(v.type));
        EXPECT_TRUE(le.yv_equal(be)) << "the same value in both byte orders";
        EXPECT_TRUE(le.yv_encoded() != nullptr) << "kept encoded";

        // Written again in its own byte order: the value's octets as they came.
        YV_CDR::OutputStream same(true);
        YV_Cxx::Marshal<CORBA::Any>::write(same, le);
        Octets expected = cdr_vector(v.name, true);
        if (v.no_default_at != 0)
            std::fill_n(expected.begin() + v.no_default_at, 4, 0xff);
        EXPECT_EQ(differences_beyond_padding(octets_of(same), expected), "");

        // Into the other byte order at every alignment: transcoded.
        for (std::size_t shift = 0; shift < 8; ++shift) {
            YV_CDR::OutputStream out(false);
            for (std::size_t i = 0; i < shift; ++i)
                out.write_octet(0xaa);
            YV_Cxx::Marshal<CORBA::Any>::write(out, le);
            YV_CDR::InputStream in(out.data(), out.size(), false);
            in.skip(shift);
            CORBA::Any back;
            YV_Cxx::Marshal<CORBA::Any>::read(in, back);
            EXPECT_EQ(in.remaining(), 0u) << "shift " << shift;
            EXPECT_TRUE(back.yv_equal(le)) << "shift " << shift;
        }
        // A copy shares the encoded value and compares equal.
        CORBA::Any copy = be;
        EXPECT_EQ(copy.yv_encoded(), be.yv_encoded());
        EXPECT_TRUE(copy.yv_equal(le));
    }
}

TEST(AnyCdr, DifferentValuesCompareUnequal)
{
    const CORBA::Any u_default = read_any(cdr_vector("any_u_default", true), true);
    const CORBA::Any u_point = read_any(cdr_vector("any_u_point", false), false);
    const CORBA::Any node = read_any(cdr_vector("any_node", true), true);
    EXPECT_FALSE(u_default.yv_equal(u_point)) << "same type, other member";
    EXPECT_FALSE(u_default.yv_equal(node)) << "other type";
    EXPECT_FALSE(u_default.yv_equal(CORBA::Any()));
    EXPECT_TRUE(CORBA::Any().yv_equal(CORBA::Any()));
}

TEST(AnyCdr, AnUnknownTypePassesThrough)
{
    // A type no code of this process declares: only its type code says
    // what the value is.
    YV_CDR::OutputStream out(false);
    out.write_ulong(CORBA::tk_struct);
    YV_CDR::OutputStream::Encapsulation e = out.begin_encapsulation();
    out.write_string("IDL:Elsewhere/Thing:1.0");
    out.write_string("Thing");
    out.write_ulong(2);
    out.write_string("when");
    out.write_ulong(CORBA::tk_ulonglong);
    out.write_string("what");
    out.write_ulong(CORBA::tk_string);
    out.write_ulong(0);
    out.end_encapsulation(e);
    out.write_ulonglong(1234567890123ull);
    out.write_string("thing");
    const Octets sent = octets_of(out);

    YV_CDR::InputStream in = stream_over(sent, false);
    CORBA::Any a;
    YV_Cxx::Marshal<CORBA::Any>::read(in, a);
    CORBA::Long l = 0;
    EXPECT_FALSE(a >>= l);
    CORBA::Any relayed = a;
    YV_CDR::OutputStream again(false);
    YV_Cxx::Marshal<CORBA::Any>::write(again, relayed);
    EXPECT_EQ(octets_of(again), sent);
}

// Malformed anys: a type code and a value that does not fit it.
TEST(AnyCdr, MalformedAnysRaiseMarshal)
{
    typedef std::function<void(YV_CDR::OutputStream&)> Writer;
    struct Case {
        const char* what;
        Writer write;
        CORBA::ULong minor;
    };
    const auto seq_of_long = [](YV_CDR::OutputStream& out, CORBA::ULong bound) {
        out.write_ulong(CORBA::tk_sequence);
        YV_CDR::OutputStream::Encapsulation e = out.begin_encapsulation();
        out.write_ulong(CORBA::tk_long);
        out.write_ulong(bound);
        out.end_encapsulation(e);
    };
    const Case cases[] = {
        {"truncated long",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(CORBA::tk_long);
             out.write_short(1);
         },
         YV_CDR::minor_end_of_data},
        {"boolean 2",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(CORBA::tk_boolean);
             out.write_octet(2);
         },
         YV_CDR::minor_bad_boolean},
        {"enumerator out of range",
         [](YV_CDR::OutputStream& out) {
             CORBA::TypeCode::_yv_write(out, V::_tc_Colour);
             out.write_ulong(3);
         },
         YV_CDR::minor_bad_enum},
        {"sequence count beyond the data",
         [&](YV_CDR::OutputStream& out) {
             seq_of_long(out, 0);
             out.write_ulong(0x40000000);
             out.write_long(1);
         },
         YV_CDR::minor_bad_length},
        {"sequence over its bound",
         [&](YV_CDR::OutputStream& out) {
             seq_of_long(out, 1);
             out.write_ulong(2);
             out.write_long(1);
             out.write_long(2);
         },
         YV_CDR::minor_bound},
        {"bounded string over its bound",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(CORBA::tk_string);
             out.write_ulong(2);
             out.write_string("abc");
         },
         YV_CDR::minor_bound},
        {"string without its NUL",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(CORBA::tk_string);
             out.write_ulong(0);
             out.write_ulong(1);
             out.write_octet('x');
         },
         YV_CDR::minor_bad_string},
        {"union discriminator out of the enum",
         [](YV_CDR::OutputStream& out) {
             CORBA::TypeCode::_yv_write(out, V::_tc_ByColour);
             out.write_ulong(9);
         },
         YV_CDR::minor_bad_enum},
        {"fixed digit 12",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(CORBA::tk_fixed);
             out.write_ushort(3);
             out.write_short(0);
             out.write_octet(0x1c);
             out.write_octet(0x2c);
         },
         YV_CDR::minor_bad_fixed},
        {"array longer than the data",
         [](YV_CDR::OutputStream& out) {
             CORBA::TypeCode::_yv_write(out, V::_tc_Grid);
             out.write_long(1);
         },
         YV_CDR::minor_bad_length},
        {"anys nested 300 deep",
         [](YV_CDR::OutputStream& out) {
             for (int i = 0; i < 300; ++i)
                 out.write_ulong(CORBA::tk_any);
             out.write_ulong(CORBA::tk_long);
             out.write_long(1);
         },
         YV_CDR::minor_nesting},
        {"object reference with a huge profile count",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(CORBA::tk_objref);
             YV_CDR::OutputStream::Encapsulation e = out.begin_encapsulation();
             out.write_string("IDL:omg.org/CORBA/Object:1.0");
             out.write_string("Object");
             out.end_encapsulation(e);
             out.write_string("");
             out.write_ulong(0xffffffff);
         },
         YV_CDR::minor_bad_length},
    };
    for (const Case& c : cases) {
        for (bool little : {true, false}) {
            YV_CDR::OutputStream out(little);
            c.write(out);
            YV_CDR::InputStream in(out.data(), out.size(), little);
            CORBA::Any a;
            try {
                YV_Cxx::Marshal<CORBA::Any>::read(in, a);
                ADD_FAILURE() << c.what << ": accepted";
            } catch (const CORBA::MARSHAL& e) {
                EXPECT_EQ(e.minor(), c.minor) << c.what;
            }
        }
    }
}

} // namespace
