// Type codes in CDR: omniORB's encodings decode to the type codes generated
// code defines, ours encode to omniORB's (padding aside), in both byte
// orders; indirections for recursive and repeated type codes; malformed
// type codes give MARSHAL.
#include "CdrVectors.hh"
#include "VectorTypes.hh"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace {

struct Vector {
    const char* name;
    CORBA::TypeCode_ptr expected;
    // Where, in the little-endian vector, omniORB wrote -2 as the default
    // index of a union without default member (we write -1).
    std::size_t no_default_at;
};

const Vector type_code_vectors[] = {
    {"tc_node", V::_tc_Node, 0}, {"tc_tree", V::_tc_Tree, 0},     {"tc_pair", V::_tc_Pair, 0},
    {"tc_u", V::_tc_U, 0},       {"tc_kinds", V::_tc_Kinds, 792},
};

class TypeCodeVectors : public ::testing::TestWithParam<bool> {};

// omniORB writes the encapsulations of type codes in its own byte order
// (little-endian here) whatever the stream's: its little-endian vectors
// are what we write, octet for octet (padding aside).
TEST_P(TypeCodeVectors, DecodeToTheGeneratedTypeCodesAndEncodeAsOmniOrbDoes)
{
    const bool little = GetParam();
    for (const Vector& v : type_code_vectors) {
        SCOPED_TRACE(v.name);
        const Octets& theirs = cdr_vector(v.name, little);
        YV_CDR::InputStream in = stream_over(theirs, little);
        CORBA::TypeCode_var tc = CORBA::TypeCode::_yv_read(in);
        EXPECT_EQ(in.remaining(), 0u);
        EXPECT_TRUE(tc->equal(v.expected));

        for (CORBA::TypeCode_ptr source : {v.expected, tc.in()}) {
            YV_CDR::OutputStream out(little);
            CORBA::TypeCode::_yv_write(out, source);
            YV_CDR::InputStream back(out.data(), out.size(), little);
            CORBA::TypeCode_var again = CORBA::TypeCode::_yv_read(back);
            EXPECT_TRUE(again->equal(v.expected));
            if (little) {
                Octets expected = theirs;
                if (v.no_default_at != 0)
                    std::fill_n(expected.begin() + v.no_default_at, 4, 0xff);
                EXPECT_EQ(differences_beyond_padding(octets_of(out), expected), "");
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(ByteOrders, TypeCodeVectors, ::testing::Values(true, false),
                         [](const ::testing::TestParamInfo<bool>& i) { return i.param ? "Little" : "Big"; });

TEST(TypeCodeCdr, IndirectionsBecomeSharedTypeCodesAndCycles)
{
    YV_CDR::InputStream node_in = stream_over(cdr_vector("tc_node", true), true);
    CORBA::TypeCode_var node = CORBA::TypeCode::_yv_read(node_in);
    CORBA::TypeCode_var children = node->member_type(1);
    CORBA::TypeCode_var again = children->content_type();
    EXPECT_EQ(again.in(), node.in()) << "a recursive type is a cycle";

    YV_CDR::InputStream pair_in = stream_over(cdr_vector("tc_pair", false), false);
    CORBA::TypeCode_var pair = CORBA::TypeCode::_yv_read(pair_in);
    CORBA::TypeCode_var a = pair->member_type(0);
    CORBA::TypeCode_var b = pair->member_type(1);
    EXPECT_EQ(a.in(), b.in()) << "a repeated type is one type code";

    // Through an alias: Tree { Forest trees } with Forest = sequence<Tree>.
    YV_CDR::InputStream tree_in = stream_over(cdr_vector("tc_tree", true), true);
    CORBA::TypeCode_var tree = CORBA::TypeCode::_yv_read(tree_in);
    CORBA::TypeCode_var forest = tree->member_type(1);
    CORBA::TypeCode_var seq = forest->content_type();
    CORBA::TypeCode_var back = seq->content_type();
    EXPECT_EQ(back.in(), tree.in());
    // Whatever part is kept keeps the rest.
    tree = CORBA::TypeCode::_nil();
    forest = CORBA::TypeCode::_nil();
    seq = CORBA::TypeCode::_nil();
    EXPECT_STREQ(back->name(), "Tree");
}

TEST(TypeCodeCdr, CompactAndCreatedTypeCodesRoundTrip)
{
    CORBA::TypeCode_var compact = V::_tc_Kinds->get_compact_typecode();
    for (bool little : {true, false}) {
        YV_CDR::OutputStream out(little);
        out.write_octet(7); // any alignment of the start
        CORBA::TypeCode::_yv_write(out, compact.in());
        YV_CDR::InputStream in(out.data(), out.size(), little);
        in.read_octet();
        CORBA::TypeCode_var back = CORBA::TypeCode::_yv_read(in);
        EXPECT_TRUE(back->equal(compact.in()));
        EXPECT_TRUE(back->equivalent(V::_tc_Kinds));
    }
}

// Builds malformed type codes with the encoder's own pieces.
typedef std::function<void(YV_CDR::OutputStream&)> Writer;

Writer encapsulated(CORBA::ULong kind, Writer params)
{
    return [kind, params](YV_CDR::OutputStream& out) {
        out.write_ulong(kind);
        YV_CDR::OutputStream::Encapsulation e = out.begin_encapsulation();
        params(out);
        out.end_encapsulation(e);
    };
}

Writer nested_sequences(int depth)
{
    if (depth == 0)
        return [](YV_CDR::OutputStream& out) { out.write_ulong(CORBA::tk_long); };
    Writer inner = nested_sequences(depth - 1);
    return encapsulated(CORBA::tk_sequence, [inner](YV_CDR::OutputStream& out) {
        inner(out);
        out.write_ulong(0);
    });
}

TEST(TypeCodeCdr, MalformedTypeCodesRaiseMarshal)
{
    struct Case {
        const char* what;
        Writer write;
        CORBA::ULong minor;
    };
    const auto id_and_name = [](YV_CDR::OutputStream& out) {
        out.write_string("IDL:X:1.0");
        out.write_string("X");
    };
    const Case cases[] = {
        {"nothing", [](YV_CDR::OutputStream&) {}, YV_CDR::minor_end_of_data},
        {"unknown kind", [](YV_CDR::OutputStream& out) { out.write_ulong(34); }, YV_CDR::minor_bad_typecode},
        {"top-level indirection",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(0xffffffff);
             out.write_long(-4);
         },
         YV_CDR::minor_bad_typecode},
        {"forward indirection", encapsulated(CORBA::tk_sequence,
                                             [](YV_CDR::OutputStream& out) {
                                                 out.write_ulong(0xffffffff);
                                                 out.write_long(8);
                                                 out.write_ulong(0);
                                             }),
         YV_CDR::minor_bad_typecode},
        {"indirection into the middle", encapsulated(CORBA::tk_sequence,
                                                     [](YV_CDR::OutputStream& out) {
                                                         out.write_ulong(0xffffffff);
                                                         out.write_long(-6);
                                                         out.write_ulong(0);
                                                     }),
         YV_CDR::minor_bad_typecode},
        {"alias of itself", encapsulated(CORBA::tk_alias,
                                         [&](YV_CDR::OutputStream& out) {
                                             id_and_name(out);
                                             out.write_ulong(0xffffffff);
                                             out.write_long(static_cast<CORBA::Long>(-static_cast<long>(out.size())));
                                         }),
         YV_CDR::minor_bad_typecode},
        {"encapsulation longer than the data",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(CORBA::tk_objref);
             out.write_ulong(1000);
             out.write_octet(1);
         },
         YV_CDR::minor_bad_length},
        {"byte order octet 2",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(CORBA::tk_objref);
             out.write_ulong(4);
             out.write_octet(2);
             out.write_octet(0);
             out.write_octet(0);
             out.write_octet(0);
         },
         YV_CDR::minor_bad_byte_order},
        {"member count beyond the data", encapsulated(CORBA::tk_struct,
                                                      [&](YV_CDR::OutputStream& out) {
                                                          id_and_name(out);
                                                          out.write_ulong(0x7fffffff);
                                                      }),
         YV_CDR::minor_bad_length},
        {"struct without members", encapsulated(CORBA::tk_struct,
                                                [&](YV_CDR::OutputStream& out) {
                                                    id_and_name(out);
                                                    out.write_ulong(0);
                                                }),
         YV_CDR::minor_bad_typecode},
        {"member of type void", encapsulated(CORBA::tk_struct,
                                             [&](YV_CDR::OutputStream& out) {
                                                 id_and_name(out);
                                                 out.write_ulong(1);
                                                 out.write_string("m");
                                                 out.write_ulong(CORBA::tk_void);
                                             }),
         YV_CDR::minor_bad_typecode},
        {"string discriminator", encapsulated(CORBA::tk_union,
                                              [&](YV_CDR::OutputStream& out) {
                                                  id_and_name(out);
                                                  out.write_ulong(CORBA::tk_string);
                                                  out.write_ulong(0);
                                                  out.write_long(-1);
                                                  out.write_ulong(1);
                                              }),
         YV_CDR::minor_bad_typecode},
        {"default index out of range", encapsulated(CORBA::tk_union,
                                                    [&](YV_CDR::OutputStream& out) {
                                                        id_and_name(out);
                                                        out.write_ulong(CORBA::tk_long);
                                                        out.write_long(1);
                                                        out.write_ulong(1);
                                                        out.write_long(0);
                                                        out.write_string("m");
                                                        out.write_ulong(CORBA::tk_long);
                                                    }),
         YV_CDR::minor_bad_typecode},
        {"fixed of 40 digits",
         [](YV_CDR::OutputStream& out) {
             out.write_ulong(CORBA::tk_fixed);
             out.write_ushort(40);
             out.write_short(2);
         },
         YV_CDR::minor_bad_typecode},
        {"id without its NUL", encapsulated(CORBA::tk_objref,
                                            [](YV_CDR::OutputStream& out) {
                                                out.write_ulong(2);
                                                out.write_octet('a');
                                                out.write_octet('b');
                                            }),
         YV_CDR::minor_bad_string},
        {"value modifier 7", encapsulated(CORBA::tk_value,
                                          [&](YV_CDR::OutputStream& out) {
                                              id_and_name(out);
                                              out.write_short(7);
                                          }),
         YV_CDR::minor_bad_typecode},
        {"sequences nested 300 deep", nested_sequences(300), YV_CDR::minor_nesting},
    };
    for (const Case& c : cases) {
        for (bool little : {true, false}) {
            YV_CDR::OutputStream out(little);
            c.write(out);
            YV_CDR::InputStream in(out.data(), out.size(), little);
            try {
                CORBA::TypeCode_var tc = CORBA::TypeCode::_yv_read(in);
                ADD_FAILURE() << c.what << ": accepted";
            } catch (const CORBA::MARSHAL& e) {
                EXPECT_EQ(e.minor(), c.minor) << c.what;
                EXPECT_EQ(e.completed(), CORBA::COMPLETED_NO) << c.what;
            }
        }
    }
    // Deep, but within the limit.
    YV_CDR::OutputStream out;
    nested_sequences(200)(out);
    YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
    CORBA::TypeCode_var deep = CORBA::TypeCode::_yv_read(in);
    EXPECT_EQ(deep->kind(), CORBA::tk_sequence);
}

} // namespace
