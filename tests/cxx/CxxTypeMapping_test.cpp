// The standard mapping's C++ forms of every type kind: parameters for each
// direction and results, dispatch variables and streamable classes.
#include "AllKindsTree.h"
#include "CPPResolver.h"
#include "CxxTypeMapping.h"
#include "CxxTypeQueries.h"

#include <gtest/gtest.h>

#include <set>

namespace {

struct Row {
    const char* kind;
    const char* in;
    const char* inout;
    const char* out;
    const char* result;
};

const Row param_rows[] = {
    {"long", "CORBA::Long", "CORBA::Long&", "CORBA::Long_out", "CORBA::Long"},
    {"ulonglong", "CORBA::ULongLong", "CORBA::ULongLong&", "CORBA::ULongLong_out", "CORBA::ULongLong"},
    {"boolean", "CORBA::Boolean", "CORBA::Boolean&", "CORBA::Boolean_out", "CORBA::Boolean"},
    {"string", "const char*", "char*&", "CORBA::String_out", "char*"},
    {"wstring", "const CORBA::WChar*", "CORBA::WChar*&", "CORBA::WString_out", "CORBA::WChar*"},
    {"any", "const CORBA::Any&", "CORBA::Any&", "CORBA::Any_out", "CORBA::Any*"},
    {"fix", "const M::FixS&", "M::FixS&", "M::FixS&", "M::FixS"},
    {"var", "const M::VarS&", "M::VarS&", "M::VarS_out", "M::VarS*"},
    {"union", "const M::U&", "M::U&", "M::U&", "M::U"},
    {"enum", "M::E", "M::E&", "M::E_out", "M::E"},
    {"seq", "const M::LongSeq&", "M::LongSeq&", "M::LongSeq_out", "M::LongSeq*"},
    {"seq2", "const M::LongSeq2&", "M::LongSeq2&", "M::LongSeq2_out", "M::LongSeq2*"},
    {"arr", "const M::LongArr", "M::LongArr", "M::LongArr", "M::LongArr_slice*"},
    {"vararr", "const M::StrArr", "M::StrArr", "M::StrArr_out", "M::StrArr_slice*"},
    {"fixed", "const M::Money&", "M::Money&", "M::Money&", "M::Money"},
    {"object", "CORBA::Object_ptr", "CORBA::Object_ptr&", "CORBA::Object_out", "CORBA::Object_ptr"},
    {"intf", "M::Other_ptr", "M::Other_ptr&", "M::Other_out", "M::Other_ptr"},
    {"value", "M::V*", "M::V*&", "M::V_out", "M::V*"},
    {"valuebase", "CORBA::ValueBase*", "CORBA::ValueBase*&", "CORBA::ValueBase_out", "CORBA::ValueBase*"},
    {"typecode", "CORBA::TypeCode_ptr", "CORBA::TypeCode_ptr&", "CORBA::TypeCode_out", "CORBA::TypeCode_ptr"},
    {"mylong", "M::MyLong", "M::MyLong&", "M::MyLong_out", "M::MyLong"},
    {"mystring", "const char*", "char*&", "CORBA::String_out", "char*"},
};

// Variables of request-based dispatch bodies (in, inout, out) and the
// streamable class (in the `result` column).
const Row storage_rows[] = {
    {"long", "CORBA::Long", "CORBA::Long", "CORBA::Long", "YV_Cxx::BasicStreamable<CORBA::Long>"},
    {"ulonglong", "CORBA::ULongLong", "CORBA::ULongLong", "CORBA::ULongLong", "YV_Cxx::BasicStreamable<CORBA::ULongLong>"},
    {"boolean", "CORBA::Boolean", "CORBA::Boolean", "CORBA::Boolean", "YV_Cxx::BasicStreamable<CORBA::Boolean>"},
    {"string", "char*", "char*", "char*", "YV_Cxx::StringStreamable"},
    {"wstring", "CORBA::WChar*", "CORBA::WChar*", "CORBA::WChar*", "YV_Cxx::WStringStreamable"},
    {"any", "CORBA::Any", "CORBA::Any", "CORBA::Any*", "YV_Cxx::AnyStreamable"},
    {"fix", "M::FixS", "M::FixS", "M::FixS", "YV_Cxx::VarStreamable<M::FixS>"},
    {"var", "M::VarS", "M::VarS", "M::VarS*", "YV_Cxx::VarStreamable<M::VarS>"},
    {"union", "M::U", "M::U", "M::U", "YV_Cxx::VarStreamable<M::U>"},
    {"enum", "M::E", "M::E", "M::E", "YV_Cxx::BasicStreamable<M::E>"},
    {"seq", "M::LongSeq", "M::LongSeq", "M::LongSeq*", "YV_Cxx::VarStreamable<M::LongSeq>"},
    {"seq2", "M::LongSeq2", "M::LongSeq2", "M::LongSeq2*", "YV_Cxx::VarStreamable<M::LongSeq2>"},
    {"arr", "M::LongArr", "M::LongArr", "M::LongArr", "YV_Cxx::ArrayStreamable<M::LongArr>"},
    {"vararr", "M::StrArr", "M::StrArr", "M::StrArr_slice*", "YV_Cxx::ArrayStreamable<M::StrArr>"},
    {"fixed", "M::Money", "M::Money", "M::Money", "YV_Cxx::BasicStreamable<M::Money>"},
    {"object", "CORBA::Object_ptr", "CORBA::Object_ptr", "CORBA::Object_ptr", "YV_Cxx::ObjRefStreamable<CORBA::Object>"},
    {"intf", "M::Other_ptr", "M::Other_ptr", "M::Other_ptr", "YV_Cxx::ObjRefStreamable<M::Other>"},
    {"value", "M::V*", "M::V*", "M::V*", "YV_Cxx::ValueStreamable<M::V>"},
    {"valuebase", "CORBA::ValueBase*", "CORBA::ValueBase*", "CORBA::ValueBase*", "YV_Cxx::ValueStreamable<CORBA::ValueBase>"},
    {"typecode", "CORBA::TypeCode_ptr", "CORBA::TypeCode_ptr", "CORBA::TypeCode_ptr", "YV_Cxx::ObjRefStreamable<CORBA::TypeCode>"},
    {"mylong", "M::MyLong", "M::MyLong", "M::MyLong", "YV_Cxx::BasicStreamable<M::MyLong>"},
    {"mystring", "char*", "char*", "char*", "YV_Cxx::StringStreamable"},
};

class CxxTypeMappingTest : public ::testing::Test {
protected:
    AllKindsTree t;
    CPPResolver resolver{nullptr};
};

TEST_F(CxxTypeMappingTest, ParameterAndResultFormsOfEveryKindFromTheRoot)
{
    CxxTypeMapping map(resolver, t.tree.root());
    for (const Row& r : param_rows) {
        SCOPED_TRACE(r.kind);
        AST_Type* type = t.type(r.kind);
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(map.param(type, CxxTypeMapping::M_in), r.in);
        EXPECT_EQ(map.param(type, CxxTypeMapping::M_inout), r.inout);
        EXPECT_EQ(map.param(type, CxxTypeMapping::M_out), r.out);
        EXPECT_EQ(map.param(type, CxxTypeMapping::M_return), r.result);
    }
}

TEST_F(CxxTypeMappingTest, DispatchVariablesAndStreamablesOfEveryKind)
{
    CxxTypeMapping map(resolver, t.tree.root());
    for (const Row& r : storage_rows) {
        SCOPED_TRACE(r.kind);
        AST_Type* type = t.type(r.kind);
        ASSERT_NE(type, nullptr);
        EXPECT_EQ(map.storage(type, CxxTypeMapping::M_in), r.in);
        EXPECT_EQ(map.storage(type, CxxTypeMapping::M_inout), r.inout);
        EXPECT_EQ(map.storage(type, CxxTypeMapping::M_out), r.out);
        EXPECT_EQ(map.streamable(type), r.result);
    }
}

TEST_F(CxxTypeMappingTest, NamesAreWrittenAsSeenFromTheMappingsScope)
{
    CxxTypeMapping from_m(resolver, t.m);
    EXPECT_EQ(from_m.param(t.type("var"), CxxTypeMapping::M_out), "VarS_out");
    EXPECT_EQ(from_m.param(t.type("intf"), CxxTypeMapping::M_in), "Other_ptr");
    EXPECT_EQ(from_m.param(t.type("long"), CxxTypeMapping::M_in), "CORBA::Long");
    // From inside the interface, a type of the enclosing module is named in full.
    CxxTypeMapping from_i(resolver, t.i);
    EXPECT_EQ(from_i.param(t.type("enum"), CxxTypeMapping::M_in), "M::E");
    // Without a scope names are fully scoped.
    CxxTypeMapping no_scope(resolver, nullptr);
    EXPECT_EQ(no_scope.param(t.type("seq"), CxxTypeMapping::M_return), "M::LongSeq*");
}

// The texts are kept on the nodes: asking in turn from scopes that name a
// type differently, and with and without the capture guard, must give each
// its own text whichever was asked first.
TEST_F(CxxTypeMappingTest, KeptTextsFollowTheScopeAndTheGuard)
{
    std::set<std::string> nested{"M"};
    CxxTypeMapping from_m(resolver, t.m), from_i(resolver, t.i), from_root(resolver, nullptr),
        guarded(resolver, nullptr);
    guarded.qualify_against(&nested);
    AST_Type* e = t.type("enum");
    AST_Type* var = t.type("var");
    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE(round);
        EXPECT_EQ(from_i.param(e, CxxTypeMapping::M_inout), "M::E&");
        EXPECT_EQ(from_m.param(e, CxxTypeMapping::M_inout), "E&");
        EXPECT_EQ(guarded.param(e, CxxTypeMapping::M_inout), "::M::E&");
        EXPECT_EQ(from_root.param(e, CxxTypeMapping::M_inout), "M::E&");
        EXPECT_EQ(from_m.streamable(var), "YV_Cxx::VarStreamable<VarS>");
        EXPECT_EQ(guarded.streamable(var), "YV_Cxx::VarStreamable<::M::VarS>");
        EXPECT_EQ(from_i.full_name(var), "M::VarS");
    }
    // A second resolver (another back end's run) makes the texts anew.
    CPPResolver other(nullptr);
    EXPECT_EQ(CxxTypeMapping(other, t.m).param(e, CxxTypeMapping::M_out), "E_out");
    EXPECT_EQ(from_root.param(e, CxxTypeMapping::M_out), "M::E_out");
}

TEST_F(CxxTypeMappingTest, KindsLookThroughTypedefChains)
{
    EXPECT_EQ(CxxTypeMapping::kind_of(t.type("seq2")), CxxTypeMapping::K_sequence);
    EXPECT_EQ(CxxTypeMapping::kind_of(t.type("mystring")), CxxTypeMapping::K_string);
    EXPECT_EQ(CxxTypeMapping::kind_of(t.bounded), CxxTypeMapping::K_string);
    EXPECT_EQ(CxxTypeMapping::kind_of(t.native), CxxTypeMapping::K_native);
    EXPECT_EQ(CxxTypeMapping::kind_of(nullptr), CxxTypeMapping::K_unknown);
}

TEST_F(CxxTypeMappingTest, TypeCodesOfNamedAndAnonymousTypes)
{
    CxxTypeMapping map(resolver, t.tree.root());
    EXPECT_EQ(map.typecode(t.type("long")), "CORBA::_tc_long");
    EXPECT_EQ(map.typecode(t.type("string")), "CORBA::_tc_string");
    EXPECT_EQ(map.typecode(t.type("var")), "M::_tc_VarS");
    EXPECT_EQ(map.typecode(t.type("seq2")), "M::_tc_LongSeq2");
    EXPECT_EQ(map.typecode(t.type("object")), "CORBA::_tc_Object");
    EXPECT_EQ(map.typecode(t.bounded), "&_yv_tc_string_10");
}

TEST_F(CxxTypeMappingTest, FixedLengthFollowsMembersElementsAndTypedefs)
{
    struct Case {
        const char* kind;
        bool fixed;
    } cases[] = {{"long", true},  {"string", false}, {"any", false},     {"fix", true},     {"var", false},
                 {"union", true}, {"enum", true},    {"seq", false},     {"arr", true},     {"vararr", false},
                 {"fixed", true}, {"intf", false},   {"value", false},   {"mylong", true},  {"typecode", false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.kind);
        EXPECT_EQ(isFixedLength(t.type(c.kind)), c.fixed);
    }
}

TEST_F(CxxTypeMappingTest, WideAndNarrowCharactersOfStringTypes)
{
    EXPECT_STREQ(wchar_or_char(t.type("string")), "char");
    EXPECT_STREQ(wchar_or_char(t.type("mystring")), "char");
    EXPECT_STREQ(wchar_or_char(t.type("wstring")), "CORBA::WChar");
}

TEST_F(CxxTypeMappingTest, NativesInSignaturesAreFound)
{
    AST_Operation* plain = t.tree.operation(t.i, t.type("long"), "plain", {arg_in(t.type("var"), "v")});
    AST_Typedef* native_td = t.tree.typedef_(t.m, t.native, "NT");
    AST_Operation* by_arg = t.tree.operation(t.i, t.tree.pre(AST_PredefinedType::PT_void), "by_arg", {arg_out(native_td, "n")});
    AST_Operation* by_result = t.tree.operation(t.i, t.native, "by_result");
    AST_Attribute* attr = t.tree.attribute(t.i, true, native_td, "nat");
    EXPECT_FALSE(op_has_natives(plain));
    EXPECT_TRUE(op_has_natives(by_arg));
    EXPECT_TRUE(op_has_natives(by_result));
    EXPECT_TRUE(attr_has_natives(attr));
    EXPECT_FALSE(attr_has_natives(t.tree.attribute(t.i, false, t.type("any"), "plain_attr")));
    EXPECT_TRUE(isRootScope(t.tree.root()));
    EXPECT_FALSE(isRootScope(t.m));
}

} // namespace
