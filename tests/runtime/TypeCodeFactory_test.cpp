// The ORB's create_*_tc operations: type codes equal to those generated
// code defines (recursive ones through create_recursive_tc included), CDR
// as omniORB writes it, and the standard checks of their arguments.
#include "CdrVectors.hh"
#include "VectorTypes.hh"

#include <gtest/gtest.h>

#include <functional>

namespace {

// Member structures in the shape of corbaidl.idl's generated code.
struct StructMember {
    CORBA::String_var name;
    CORBA::TypeCode_var type;
    CORBA::Object_var type_def;
};
typedef YV_Cxx::UnboundedSequence<StructMember> StructMemberSeq;
struct UnionMember {
    CORBA::String_var name;
    CORBA::Any label;
    CORBA::TypeCode_var type;
    CORBA::Object_var type_def;
};
typedef YV_Cxx::UnboundedSequence<UnionMember> UnionMemberSeq;
typedef YV_Cxx::UnboundedSequence<CORBA::String_var> EnumMemberSeq;
struct ValueMember {
    CORBA::String_var name;
    CORBA::String_var id;
    CORBA::String_var defined_in;
    CORBA::String_var version;
    CORBA::TypeCode_var type;
    CORBA::Object_var type_def;
    CORBA::Short access;
};
typedef YV_Cxx::UnboundedSequence<ValueMember> ValueMemberSeq;

CORBA::ORB_ptr orb()
{
    int argc = 0;
    return CORBA::ORB_init(argc, nullptr);
}

StructMemberSeq struct_members(std::initializer_list<std::pair<const char*, CORBA::TypeCode_ptr>> list)
{
    StructMemberSeq seq;
    for (const auto& m : list) {
        seq.length(seq.length() + 1);
        seq[seq.length() - 1].name = m.first;
        seq[seq.length() - 1].type = CORBA::TypeCode::_duplicate(m.second);
    }
    return seq;
}

TEST(TypeCodeFactory, RecursiveStructThroughASequence)
{
    CORBA::TypeCode_var placeholder = orb()->create_recursive_tc("IDL:V/Node:1.0");
    CORBA::TypeCode_var children = orb()->create_sequence_tc(0, placeholder.in());
    CORBA::TypeCode_var node =
        orb()->create_struct_tc("IDL:V/Node:1.0", "Node", struct_members({{"value", CORBA::_tc_long}, {"children", children.in()}}));
    placeholder = CORBA::TypeCode::_nil();
    children = CORBA::TypeCode::_nil();
    EXPECT_TRUE(node->equal(V::_tc_Node));
    CORBA::TypeCode_var seq = node->member_type(1);
    CORBA::TypeCode_var back = seq->content_type();
    EXPECT_EQ(back.in(), node.in());

    YV_CDR::OutputStream out(true);
    CORBA::TypeCode::_yv_write(out, node.in());
    EXPECT_EQ(differences_beyond_padding(octets_of(out), cdr_vector("tc_node", true)), "");
}

TEST(TypeCodeFactory, EveryKindEqualsTheGeneratedTypeCode)
{
    CORBA::ORB_ptr o = orb();
    CORBA::TypeCode_var point =
        o->create_struct_tc("IDL:V/Point:1.0", "Point", struct_members({{"x", CORBA::_tc_short}, {"y", CORBA::_tc_double}}));
    UnionMemberSeq u(3);
    u.length(3);
    u[0].name = "s";
    u[0].label <<= CORBA::Long(1);
    u[0].type = CORBA::TypeCode::_duplicate(CORBA::_tc_string);
    u[1].name = "p";
    u[1].label <<= CORBA::Long(2);
    u[1].type = CORBA::TypeCode::_duplicate(point.in());
    u[2].name = "o";
    u[2].label <<= CORBA::Any::from_octet(0);
    u[2].type = CORBA::TypeCode::_duplicate(CORBA::_tc_octet);
    EnumMemberSeq colours;
    colours.length(3);
    colours[0] = "red";
    colours[1] = "green";
    colours[2] = "blue";
    CORBA::TypeCode_var long_seq = o->create_sequence_tc(0, CORBA::_tc_long);
    CORBA::TypeCode_var long_seq_seq = o->create_sequence_tc(0, long_seq.in());
    CORBA::TypeCode_var row = o->create_array_tc(3, CORBA::_tc_long);
    CORBA::TypeCode_var rows = o->create_array_tc(2, row.in());
    CORBA::TypeCode_var string8 = o->create_string_tc(8);

    struct Case {
        const char* what;
        CORBA::TypeCode_var made;
        CORBA::TypeCode_ptr expected;
    };
    Case cases[] = {
        {"struct", CORBA::TypeCode::_duplicate(point.in()), V::_tc_Point},
        {"union with default", o->create_union_tc("IDL:V/U:1.0", "U", CORBA::_tc_long, u), V::_tc_U},
        {"enum", o->create_enum_tc("IDL:V/Colour:1.0", "Colour", colours), V::_tc_Colour},
        {"alias of sequences", o->create_alias_tc("IDL:V/LongSeqSeq:1.0", "LongSeqSeq", long_seq_seq.in()),
         V::_tc_LongSeqSeq},
        {"alias of arrays", o->create_alias_tc("IDL:V/Grid:1.0", "Grid", rows.in()), V::_tc_Grid},
        {"bounded string", o->create_alias_tc("IDL:V/Name:1.0", "Name", string8.in()), V::_tc_Name},
        {"interface", o->create_interface_tc("IDL:V/Account:1.0", "Account"), V::_tc_Account},
        {"exception",
         o->create_exception_tc("IDL:V/Refused:1.0", "Refused", struct_members({{"reason", CORBA::_tc_string}})),
         V::_tc_Refused},
        {"unbounded string", o->create_string_tc(0), CORBA::_tc_string},
        {"unbounded wstring", o->create_wstring_tc(0), CORBA::_tc_wstring},
    };
    for (Case& c : cases)
        EXPECT_TRUE(c.made->equal(c.expected)) << c.what;

    CORBA::TypeCode_var fixed = o->create_fixed_tc(5, 2);
    EXPECT_EQ(fixed->fixed_digits(), 5);
    CORBA::TypeCode_var wide = o->create_wstring_tc(4);
    EXPECT_EQ(wide->length(), 4u);
    CORBA::TypeCode_var native = o->create_native_tc("IDL:N:1.0", "N");
    CORBA::TypeCode_var abstract = o->create_abstract_interface_tc("IDL:A:1.0", "A");
    CORBA::TypeCode_var local = o->create_local_interface_tc("IDL:L:1.0", "L");
    EXPECT_EQ(native->kind(), CORBA::tk_native);
    EXPECT_EQ(abstract->kind(), CORBA::tk_abstract_interface);
    EXPECT_STREQ(local->id(), "IDL:L:1.0");
}

TEST(TypeCodeFactory, RecursiveValueAndValueBox)
{
    CORBA::ORB_ptr o = orb();
    CORBA::TypeCode_var self = o->create_recursive_tc("IDL:Link:1.0");
    ValueMemberSeq members;
    members.length(2);
    members[0].name = "data";
    members[0].type = CORBA::TypeCode::_duplicate(CORBA::_tc_long);
    members[0].access = 1;
    members[1].name = "next";
    members[1].type = CORBA::TypeCode::_duplicate(self.in());
    members[1].access = 0;
    CORBA::TypeCode_var link = o->create_value_tc("IDL:Link:1.0", "Link", CORBA::VM_NONE, CORBA::TypeCode::_nil(), members);
    EXPECT_EQ(link->member_visibility(0), 1);
    CORBA::TypeCode_var next = link->member_type(1);
    EXPECT_EQ(next.in(), link.in());
    EXPECT_TRUE(CORBA::is_nil(CORBA::TypeCode_var(link->concrete_base_type())));

    CORBA::TypeCode_var box = o->create_value_box_tc("IDL:Box:1.0", "Box", CORBA::_tc_string);
    CORBA::TypeCode_var boxed = box->content_type();
    EXPECT_EQ(boxed.in(), CORBA::_tc_string);

    // Both round trip through CDR.
    for (CORBA::TypeCode_ptr tc : {link.in(), box.in()}) {
        YV_CDR::OutputStream out;
        CORBA::TypeCode::_yv_write(out, tc);
        YV_CDR::InputStream in(out.data(), out.size(), out.little_endian());
        CORBA::TypeCode_var back = CORBA::TypeCode::_yv_read(in);
        EXPECT_TRUE(back->equal(tc));
    }
    // An unresolved placeholder cannot travel.
    YV_CDR::OutputStream out;
    EXPECT_THROW(CORBA::TypeCode::_yv_write(out, self.in()), CORBA::BAD_TYPECODE);
}

TEST(TypeCodeFactory, ArgumentsAreChecked)
{
    const CORBA::ULong om = 0x4f4d0000;
    CORBA::ORB_ptr o = orb();
    UnionMemberSeq twice(2);
    twice.length(2);
    for (CORBA::ULong i = 0; i < 2; ++i) {
        twice[i].name = i == 0 ? "a" : "b";
        twice[i].label <<= CORBA::Long(7);
        twice[i].type = CORBA::TypeCode::_duplicate(CORBA::_tc_long);
    }
    UnionMemberSeq wrong_label(1);
    wrong_label.length(1);
    wrong_label[0].name = "a";
    wrong_label[0].label <<= CORBA::Short(7);
    wrong_label[0].type = CORBA::TypeCode::_duplicate(CORBA::_tc_long);

    struct Case {
        const char* what;
        std::function<CORBA::TypeCode_ptr()> make;
        CORBA::ULong minor;
        bool bad_typecode;
    };
    const Case cases[] = {
        {"id without a format", [&] { return o->create_interface_tc("Account", "Account"); }, om | 16, false},
        {"name not an identifier", [&] { return o->create_interface_tc("IDL:A:1.0", "a b"); }, om | 15, false},
        {"member name twice",
         [&] { return o->create_struct_tc("IDL:S:1.0", "S", struct_members({{"m", CORBA::_tc_long}, {"m", CORBA::_tc_short}})); },
         om | 17, false},
        {"member of type void",
         [&] { return o->create_struct_tc("IDL:S:1.0", "S", struct_members({{"m", CORBA::_tc_void}})); }, om | 2, true},
        {"label twice", [&] { return o->create_union_tc("IDL:U:1.0", "U", CORBA::_tc_long, twice); }, om | 18, false},
        {"label of another type",
         [&] { return o->create_union_tc("IDL:U:1.0", "U", CORBA::_tc_long, wrong_label); }, om | 19, false},
        {"string discriminator",
         [&] { return o->create_union_tc("IDL:U:1.0", "U", CORBA::_tc_string, wrong_label); }, om | 20, false},
        {"sequence of void", [&] { return o->create_sequence_tc(0, CORBA::_tc_void); }, om | 2, true},
    };
    for (const Case& c : cases) {
        try {
            CORBA::TypeCode_var tc = c.make();
            ADD_FAILURE() << c.what << ": accepted";
        } catch (const CORBA::BAD_PARAM& e) {
            EXPECT_FALSE(c.bad_typecode) << c.what;
            EXPECT_EQ(e.minor(), c.minor) << c.what;
        } catch (const CORBA::BAD_TYPECODE& e) {
            EXPECT_TRUE(c.bad_typecode) << c.what;
            EXPECT_EQ(e.minor(), c.minor) << c.what;
        }
    }
}

} // namespace
