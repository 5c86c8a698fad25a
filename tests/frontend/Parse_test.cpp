// The shape of the tree the back ends rely on: one golden dump per scenario,
// and direct checks of the links a dump cannot show (node identity).
#include "FrontendTestSupport.h"

#include "AST_Argument.h"
#include "AST_Attribute.h"
#include "AST_CBE_Specific.h"
#include "AST_Interface.h"
#include "AST_InterfaceFwd.h"
#include "AST_Module.h"
#include "AST_Operation.h"
#include "AST_PredefinedType.h"
#include "AST_Sequence.h"
#include "AST_String.h"
#include "AST_StructFwd.h"
#include "AST_Structure.h"
#include "AST_Typedef.h"
#include "AST_Value.h"
#include "AST_ValueFwd.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

namespace {

const std::string kData = YV_TEST_DATA_DIR "/tree/";

std::string golden_check(const std::string& scenario, const fetest::Parsed& p)
{
    if (!p.data)
        return scenario + " was rejected:\n" + p.err;
    return yvtest::compare_golden(kData + scenario + ".tree", fetest::dump(*p.data));
}

class TreeGolden : public testing::TestWithParam<const char*> {};

TEST_P(TreeGolden, MatchesDump)
{
    std::string scenario = GetParam();
    fetest::Parsed p = fetest::parse_file(kData + scenario + ".idl", {kData + "inc"});
    EXPECT_EQ(p.errors, 0) << p.err;
    EXPECT_EQ(golden_check(scenario, p), "");
}

INSTANTIATE_TEST_SUITE_P(Scenarios, TreeGolden,
                         testing::Values("constants", "modules_forward", "types", "values", "repoids", "includes"));

TEST(TreeShape, ForwardDeclarationsResolveToTheDefinition)
{
    fetest::Parsed p = fetest::parse_file(kData + "modules_forward.idl", {});
    ASSERT_TRUE(p.data) << p.err;
    IDL_GlobalData& g = *p.data;
    auto* i = AST_Interface::narrow_from_decl(fetest::find(g, "A::I"));
    ASSERT_TRUE(i);
    EXPECT_TRUE(i->is_defined());
    // Both forward declarations of I name the one defined node.
    int forwards = 0;
    for (const auto& d : g.root()->decls())
        if (UTL_Scope* s = DeclAsScope(d.get()))
            for (const auto& m : s->decls())
                if (auto* f = AST_InterfaceFwd::narrow_from_decl(m.get()); f && m->local_name()->str() == "I") {
                    EXPECT_EQ(f->full_definition(), i);
                    ++forwards;
                }
    EXPECT_EQ(forwards, 2);
    // A reference written before the definition points to it too.
    auto* alias = AST_Typedef::narrow_from_decl(fetest::find(g, "B::Alias"));
    ASSERT_TRUE(alias);
    EXPECT_EQ(alias->base_type(), i);
    // The definition stands in the opening where it was written.
    EXPECT_EQ(ScopeAsDecl(i->defined_in()), fetest::find(g, "A::I")->defined_in()->scope_as_decl());
    EXPECT_EQ(i->line(), 16);

    auto* s = AST_Structure::narrow_from_decl(fetest::find(g, "A::S"));
    auto* seq = AST_Sequence::narrow_from_decl(AST_Typedef::narrow_from_decl(fetest::find(g, "A::SSeq"))->base_type());
    ASSERT_TRUE(s && seq);
    EXPECT_EQ(seq->base_type(), s);
    EXPECT_FALSE(seq->is_recursive());

    auto* j = AST_Interface::narrow_from_decl(fetest::find(g, "A::J"));
    ASSERT_TRUE(j);
    ASSERT_EQ(j->inherits().size(), 1u);
    EXPECT_EQ(j->inherits()[0], i);

    // Never defined: the forward declaration's node stays pending.
    auto* never = AST_Interface::narrow_from_decl(fetest::find(g, "A::Never"));
    ASSERT_TRUE(never);
    EXPECT_FALSE(never->is_defined());
}

TEST(TreeShape, ModuleOpeningsChainInOrder)
{
    fetest::Parsed p = fetest::parse_file(kData + "modules_forward.idl", {});
    ASSERT_TRUE(p.data) << p.err;
    std::vector<AST_Module*> openings;
    for (const auto& d : p.data->root()->decls())
        if (auto* m = AST_Module::narrow_from_decl(d.get()); m && d->local_name()->str() == "A")
            openings.push_back(m);
    ASSERT_EQ(openings.size(), 3u);
    EXPECT_FALSE(openings[0]->is_reopened());
    EXPECT_EQ(openings[1]->previous_opening(), openings[0]);
    EXPECT_EQ(openings[2]->previous_opening(), openings[1]);
    for (AST_Module* m : openings)
        EXPECT_EQ(m->repoID(), "IDL:A:1.0");
}

TEST(TreeShape, PredefinedTypesAreSharedNodesOfTheRoot)
{
    fetest::Parsed p = fetest::parse("interface I { long a(in long b); string s(in string t, in string<4> u); };");
    ASSERT_TRUE(p.data) << p.err;
    auto* op = AST_Operation::narrow_from_decl(fetest::find(*p.data, "I::a"));
    ASSERT_TRUE(op);
    auto* arg = AST_Argument::narrow_from_decl(op->decls()[0].get());
    EXPECT_EQ(op->return_type(), arg->field_type());
    EXPECT_EQ(op->return_type()->defined_in(), static_cast<UTL_Scope*>(p.data->root()));
    EXPECT_EQ(AST_PredefinedType::narrow_from_decl(op->return_type())->pt(), AST_PredefinedType::PT_long);

    auto* s = AST_Operation::narrow_from_decl(fetest::find(*p.data, "I::s"));
    auto* t = AST_Argument::narrow_from_decl(s->decls()[0].get());
    auto* u = AST_Argument::narrow_from_decl(s->decls()[1].get());
    // Unbounded string: one shared node, not anonymous; bounded: its own.
    EXPECT_EQ(s->return_type(), t->field_type());
    EXPECT_FALSE(AST_String::narrow_from_decl(t->field_type())->anonymous());
    auto* bounded = AST_String::narrow_from_decl(u->field_type());
    ASSERT_TRUE(bounded);
    EXPECT_TRUE(bounded->anonymous());
    EXPECT_EQ(bounded->node_type(), AST_Decl::NT_string);
    EXPECT_EQ(bounded->defined_in(), static_cast<UTL_Scope*>(s));
}

TEST(TreeShape, BackEndBlocksKeepTheirLinesVerbatim)
{
    fetest::Parsed p = fetest::parse("module M {\n%{POACxx\n#include \"a.h\"\n  @switch -xTIE\n%}\n};\n");
    ASSERT_TRUE(p.data) << p.err;
    auto* m = AST_Module::narrow_from_decl(p.data->root()->decls()[0].get());
    ASSERT_TRUE(m && m->decls().size() == 1);
    auto* b = AST_CBE_Specific::narrow_from_decl(m->decls()[0].get());
    ASSERT_TRUE(b);
    EXPECT_STREQ(b->cbe_ident(), "POACxx");
    EXPECT_EQ(b->cbe_specific_string()->str(), "#include \"a.h\"\n  @switch -xTIE\n");
    EXPECT_EQ(b->line(), 2);
    EXPECT_TRUE(b->in_main_file());
}

TEST(TreeShape, EmptyFileIsValid)
{
    for (const char* text : {"", "\n\n", "// only a comment\n", "/* x */"}) {
        fetest::Parsed p = fetest::parse(text);
        ASSERT_TRUE(p.data) << p.err;
        EXPECT_TRUE(p.data->root()->decls().empty());
        EXPECT_EQ(p.data->stripped_filename()->str(), "main.idl");
    }
}

TEST(TreeShape, ReparsingGivesTheSameTree)
{
    std::string text = yvtest::read_file(kData + "types.idl");
    fetest::Parsed a = fetest::parse(text), b = fetest::parse(text);
    ASSERT_TRUE(a.data && b.data);
    EXPECT_EQ(fetest::dump(*a.data), fetest::dump(*b.data));
}

} // namespace

namespace {

// Valid input that a too-strict check would reject.
struct GoodInput {
    const char* name;
    const char* text;
};

void PrintTo(const GoodInput& c, std::ostream* os) { *os << c.name; }

const GoodInput kGood[] = {
    {"diamond", "interface A { void f(); }; interface B : A {}; interface C : A {}; interface D : B, C { void g(); };"},
    {"member_named_like_type", "typedef string Name; struct S { Name name; Name other; };\n"
                               "interface I { attribute Name name; void set(in Name name); };"},
    {"shadowing_type_in_derived", "interface A { typedef long T; }; interface B : A { typedef short T; T f(); };"},
    {"type_through_base", "interface A { struct S { long x; }; }; interface B : A { S get(); };"},
    {"escaped_keywords", "module _module { typedef long _interface; struct _struct { _interface _long; }; };"},
    {"later_keywords_as_names", "typedef long Factory; enum ValueType { Public, Private }; typedef ValueType Custom;"},
    {"typecode_everywhere", "typedef TypeCode T1; typedef CORBA::TypeCode T2; typedef ::CORBA::TypeCode T3;\n"
                            "module CORBA { typedef TypeCode T4; interface X { TypeCode tc(); }; };"},
    {"object_and_valuebase", "interface I { Object o(in CORBA::Object a); ValueBase v(in CORBA::ValueBase b); };"},
    {"recursion_through_typedef", "struct S; typedef sequence<S> Ss; struct S { Ss children; };"},
    {"union_recursion", "union U switch (long) { case 1: sequence<U> list; default: long leaf; };"},
    {"forward_after_definition", "interface I {}; interface I; struct S { long a; }; struct S;"},
    {"enumerator_label_scoped", "module M { enum E { a, b }; }; union U switch (M::E) { case M::a: long x; case M::b: long y; };"},
    {"nested_template_close", "typedef sequence<sequence<sequence<long>>> Cube; typedef sequence<string<5>> S5;"},
    {"bound_expressions", "const long N = 4; typedef sequence<long, N * 2> S; typedef long A[N][N + 1]; typedef string<(N >> 1)> Str;"},
    {"attribute_raises", "exception E {}; interface I { readonly attribute long r raises (E);\n"
                         "attribute long w getraises (E) setraises (E); attribute long x setraises (E); };"},
    {"context_clause", "interface I { void f() context (\"USER\", \"LANG*\"); };"},
    {"abstract_and_local", "abstract interface A {}; local interface L : A {}; interface I : A {};"},
    {"value_supports_abstract", "abstract interface A { void f(); }; interface C {};\n"
                                "valuetype V supports A, C { public long x; };"},
    {"reopened_lookup", "module M { typedef long T; }; module N { typedef M::T U; }; module M { typedef T V; };"},
    {"inherited_constant_in_bound", "interface A { const long N = 3; }; interface B : A { typedef long Arr[N]; };"},
    {"typeprefix_inside", "module M { typeprefix M \"acme.com\"; interface I {}; };"},
    {"pragmas_mid_scope", "module M {\n#pragma prefix \"x.org\"\n  interface I {};\n#pragma ID I \"IDL:x/I:1.0\"\n};"},
    {"empty_bodies", "module M { interface I {}; exception E {}; valuetype V {}; };"},
};

class Accepted : public testing::TestWithParam<GoodInput> {};

TEST_P(Accepted, ParsesWithoutDiagnostics)
{
    fetest::Parsed p = fetest::parse(GetParam().text);
    EXPECT_TRUE(p.data);
    EXPECT_EQ(p.errors, 0);
    EXPECT_EQ(p.err, "");
}

INSTANTIATE_TEST_SUITE_P(Table, Accepted, testing::ValuesIn(kGood),
                         [](const testing::TestParamInfo<GoodInput>& info) { return std::string(info.param.name); });

} // namespace
