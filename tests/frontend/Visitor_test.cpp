// The visitor framework: every node that a parse can produce reaches, through
// its accept, the element registered under its kind's key, and the default
// output visitor names it.
#include "AST_Decl.h"
#include "AST_Root.h"
#include "DefaultOutputVisitor.h"
#include "FrontendTestSupport.h"
#include "NameResolver.h"
#include "UTL_Scope.h"
#include "Visitor_i.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <sstream>
#include <string>

namespace {

// Registers an element under every key; each records the key it was found by.
class RecordingVisitor : public Visitor_i {
public:
    RecordingVisitor() : Visitor_i(nullptr, nullptr)
    {
        for (const char* key : {rootKey, moduleKey, interfaceKey, interfaceFwdKey, valueKey, valueFwdKey, valueBoxKey,
                                CBE_specificKey, operationKey, attributeKey, argumentKey, structureKey, structFwdKey,
                                unionKey, unionFwdKey, unionBranchKey, fieldKey, enumKey, enumValKey, constantKey,
                                exceptionKey, stringKey, arrayKey, sequenceKey, typedefKey, predefinedKey, objectKey,
                                valueBaseKey, nativeKey, fixedKey, factoryKey, stateMemberKey})
            add_element(key, new Recorder(key, m_last));
    }
    std::string last() const { return m_last; }

private:
    class Recorder : public Visitor_i::VisitorElement {
    public:
        Recorder(const char* key, std::string& last) : m_key(key), m_last(last) {}
        long visit(AST_Decl*) override
        {
            m_last = m_key;
            return 1;
        }

    private:
        const char* m_key;
        std::string& m_last;
    };
    std::string m_last;
};

void walk(AST_Decl* d, std::vector<AST_Decl*>& all)
{
    all.push_back(d);
    if (UTL_Scope* s = DeclAsScope(d)) {
        for (const auto& child : s->decls())
            walk(child.get(), all);
        for (const auto& child : s->local_types())
            walk(child.get(), all);
    }
}

TEST(Visitor, EveryNodeReachesTheElementOfItsKind)
{
    const fetest::Parsed p = fetest::parse(R"(
        native N;
        struct SF; union UF; interface IF; valuetype VF;
        struct SF { long a; }; union UF switch (short) { case 1: long b; };
        module M {
            const long C = 1;
            enum E { e1, e2 };
            struct S { long a; string<4> b; sequence<long> c; fixed<5,2> d; };
            union U switch (long) { case 1: long x; default: char y; };
            typedef long A[3];
            exception X { long code; };
            interface I { attribute Object o; long op(in string s, out any a) raises (X); };
            abstract interface AI { void f(); };
            valuetype V { public long m; factory make(in long m); };
            valuetype B long;
            typedef ValueBase VB;
        };
    )");
    ASSERT_EQ(p.errors, 0) << p.err;

    // The key of each kind, independent of the table the framework is made from.
    const std::map<AST_Decl::NodeType, std::string> key_of = {
        {AST_Decl::NT_module, "module"}, {AST_Decl::NT_root, "root"}, {AST_Decl::NT_interface, "interface"},
        {AST_Decl::NT_interface_fwd, "interface_fwd"}, {AST_Decl::NT_const, "constant"},
        {AST_Decl::NT_except, "exception"}, {AST_Decl::NT_attr, "attribute"}, {AST_Decl::NT_op, "operation"},
        {AST_Decl::NT_argument, "argument"}, {AST_Decl::NT_union, "union"},
        {AST_Decl::NT_union_branch, "union_branch"}, {AST_Decl::NT_struct, "structure"},
        {AST_Decl::NT_field, "field"}, {AST_Decl::NT_enum, "enum"}, {AST_Decl::NT_enum_val, "enum_val"},
        {AST_Decl::NT_string, "string"}, {AST_Decl::NT_array, "array"}, {AST_Decl::NT_sequence, "sequence"},
        {AST_Decl::NT_typedef, "typedef"}, {AST_Decl::NT_pre_defined, "predefined"},
        {AST_Decl::NT_native, "native"}, {AST_Decl::NT_object, "object"},
        {AST_Decl::NT_cbe_specific, "cbe_specific"}, {AST_Decl::NT_fixed, "fixed"},
        {AST_Decl::NT_value, "value"}, {AST_Decl::NT_value_fwd, "value_fwd"},
        {AST_Decl::NT_valuebase, "value_base"}, {AST_Decl::NT_value_box, "value_box"},
        {AST_Decl::NT_state_member, "state_member"}, {AST_Decl::NT_factory, "factory"},
        {AST_Decl::NT_struct_fwd, "struct_fwd"}, {AST_Decl::NT_union_fwd, "union_fwd"}};

    std::vector<AST_Decl*> all;
    walk(p.data->root(), all);
    RecordingVisitor recorder;
    NameResolver resolver;
    std::set<AST_Decl::NodeType> seen;
    for (AST_Decl* d : all) {
        seen.insert(d->node_type());
        d->accept(&recorder);
        EXPECT_EQ(recorder.last(), key_of.at(d->node_type())) << fetest::scoped(d);

        std::ostringstream text;
        DefaultOutputVisitor names(text, resolver);
        d->accept(&names);
        EXPECT_EQ(text.str(), resolver.local_name(d)) << fetest::scoped(d);
    }
    // The walk met most kinds (the back-end block needs its pragma).
    EXPECT_GE(seen.size(), 28u);
}

} // namespace
