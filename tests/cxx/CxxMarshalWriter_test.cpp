// The marshaling writer: the least encoded size of every type kind (a
// lower bound that decoders rely on to refuse forged counts) and the
// statement that writes and reads a member of each kind.
#include "AllKindsTree.h"
#include "CPPResolver.h"
#include "CxxMarshalWriter.h"
#include "CxxTypeMapping.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const char* kind;
    std::size_t min_size;
    const char* write; // for member "m" and stream "o"
    const char* read;  // for member "m" and stream "i"
};

const Row rows[] = {
    {"long", 4, "o.write_long(m);", "m = i.read_long();"},
    {"ulonglong", 8, "o.write_ulonglong(m);", "m = i.read_ulonglong();"},
    {"boolean", 1, "o.write_boolean(m);", "m = i.read_boolean();"},
    {"mylong", 4, "o.write_long(m);", "m = i.read_long();"},
    // The length and the NUL.
    {"string", 5, "YV_Cxx::Marshal<CORBA::String_var>::write(o, m);", "YV_Cxx::Marshal<CORBA::String_var>::read(i, m);"},
    {"mystring", 5, "YV_Cxx::Marshal<CORBA::String_var>::write(o, m);", "YV_Cxx::Marshal<CORBA::String_var>::read(i, m);"},
    {"wstring", 4, "YV_Cxx::Marshal<CORBA::WString_var>::write(o, m);", "YV_Cxx::Marshal<CORBA::WString_var>::read(i, m);"},
    {"any", 4, "YV_Cxx::Marshal<CORBA::Any>::write(o, m);", "YV_Cxx::Marshal<CORBA::Any>::read(i, m);"},
    {"fix", 4, "YV_Cxx::Marshal<M::FixS>::write(o, m);", "YV_Cxx::Marshal<M::FixS>::read(i, m);"},
    {"var", 5, "YV_Cxx::Marshal<M::VarS>::write(o, m);", "YV_Cxx::Marshal<M::VarS>::read(i, m);"},
    // A discriminator other than 1 selects no member.
    {"union", 4, "YV_Cxx::Marshal<M::U>::write(o, m);", "YV_Cxx::Marshal<M::U>::read(i, m);"},
    {"enum", 4, "YV_Cxx::Marshal<M::E>::write(o, m);", "YV_Cxx::Marshal<M::E>::read(i, m);"},
    {"seq", 4, "YV_Cxx::Marshal<M::LongSeq>::write(o, m);", "YV_Cxx::Marshal<M::LongSeq>::read(i, m);"},
    {"seq2", 4, "YV_Cxx::Marshal<M::LongSeq2>::write(o, m);", "YV_Cxx::Marshal<M::LongSeq2>::read(i, m);"},
    {"arr", 16, "YV_Cxx::Marshal<M::LongArr>::write(o, m);", "YV_Cxx::Marshal<M::LongArr>::read(i, m);"},
    {"vararr", 10, "YV_Cxx::Marshal<M::StrArr>::write(o, m);", "YV_Cxx::Marshal<M::StrArr>::read(i, m);"},
    // fixed<5,2>: five digits and the sign in three octets.
    {"fixed", 3, "YV_Cxx::Marshal<M::Money>::write(o, m);", "YV_Cxx::Marshal<M::Money>::read(i, m);"},
    // An empty type id and no profiles.
    {"object", 9, "YV_Cxx::Marshal<CORBA::Object_var>::write(o, m);", "YV_Cxx::Marshal<CORBA::Object_var>::read(i, m);"},
    {"intf", 9, "YV_Cxx::Marshal<M::Other_var>::write(o, m);", "YV_Cxx::Marshal<M::Other_var>::read(i, m);"},
    {"value", 4, "YV_Cxx::Marshal<M::V_var>::write(o, m);", "YV_Cxx::Marshal<M::V_var>::read(i, m);"},
    {"typecode", 4, "YV_Cxx::Marshal<CORBA::TypeCode_var>::write(o, m);",
     "YV_Cxx::Marshal<CORBA::TypeCode_var>::read(i, m);"},
};

TEST(CxxMarshalWriter, LeastSizesAndMemberStatementsOfEveryKind)
{
    AllKindsTree t;
    CPPResolver resolver(nullptr);
    CxxTypeMapping map(resolver, nullptr);
    CxxMarshalWriter writer(map, resolver);
    for (const Row& r : rows) {
        SCOPED_TRACE(r.kind);
        AST_Type* type = t.type(r.kind);
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(writer.min_size(type), r.min_size);
        EXPECT_EQ(writer.write_statement(type, "o", "m"), r.write);
        EXPECT_EQ(writer.read_statement(type, "i", "m"), r.read);
    }
    // A bounded string checks its bound through the runtime's helpers.
    EXPECT_EQ(writer.write_statement(t.bounded, "o", "m"), "YV_Cxx::write_bounded_string(o, m, 10U);");
    EXPECT_EQ(writer.read_statement(t.bounded, "i", "m"), "YV_Cxx::read_bounded_string(i, m, 10U);");
}

} // namespace
