// C++ names of declarations: keywords, the clash prefix, predefined types
// and scoped names with and without a name visitor.
#include "CPPResolver.h"
#include "CxxTestTree.h"
#include "DefaultOutputVisitor.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace {

// Writes "<" and the local name and ">" for each component, to show which
// component went through the visitor.
class BracketVisitor : public virtual DefaultOutputVisitor {
public:
    BracketVisitor(std::ostream& os, NameResolver& r) : Visitor_i(nullptr, nullptr), DefaultOutputVisitor(os, r) {}
    long visit_AST_Module(AST_Module* n) override { return bracket(n); }
    long visit_AST_Interface(AST_Interface* n) override { return bracket(n); }

private:
    long bracket(AST_Decl* d)
    {
        stream() << "<" << resolver().local_name(d) << ">";
        return 1;
    }
};

class CPPResolverTest : public ::testing::Test {
protected:
    CPPResolverTest()
    {
        resolver.set_clash_prefix("_cxx_");
        m = tree.module(tree.root(), "M");
        n = tree.module(m, "N");
        i = tree.interface(n, "I");
        kw = tree.interface(m, "class");
        op = tree.operation(kw, tree.pre(AST_PredefinedType::PT_void), "delete");
        other = tree.module(tree.root(), "Other");
        resolver.resolve_clashes(tree.root());
    }

    CxxTestTree tree;
    CPPResolver resolver{nullptr};
    AST_Module* m;
    AST_Module* n;
    AST_Interface* i;
    AST_Interface* kw;
    AST_Operation* op;
    AST_Module* other;
};

TEST_F(CPPResolverTest, KeywordsAndAlternativeTokensAreReserved)
{
    for (const char* word : {"class", "delete", "and", "or", "not", "xor", "bitand", "bitor", "compl", "and_eq",
                             "or_eq", "xor_eq", "not_eq", "co_await", "co_return", "co_yield", "concept", "requires",
                             "char8_t", "consteval", "constinit", "nullptr", "thread_local", "alignas", "wchar_t"})
        EXPECT_TRUE(CPPResolver::is_cxx_keyword(word)) << word;
    for (const char* word : {"Class", "override", "final", "import", "module", "foo", "", "main"})
        EXPECT_FALSE(CPPResolver::is_cxx_keyword(word)) << word;
}

TEST_F(CPPResolverTest, ClashingNamesGetThePrefixAndTheTreeIsUnchanged)
{
    EXPECT_EQ(resolver.local_name(kw), "_cxx_class");
    EXPECT_EQ(resolver.local_name(op), "_cxx_delete");
    EXPECT_EQ(resolver.local_name(i), "I");
    EXPECT_EQ(kw->local_name()->str(), "class");
    // A node made after the walk is named when asked.
    AST_Attribute* late = tree.attribute(i, true, tree.pre(AST_PredefinedType::PT_long), "register");
    EXPECT_EQ(resolver.local_name(late), "_cxx_register");
}

TEST_F(CPPResolverTest, ScopedNamesWithAndWithoutVisitors)
{
    std::ostringstream full, scope, with_visitor, from_m, from_other;
    resolver.output_fully_scoped_name(full, op);
    resolver.output_full_scope(scope, i);
    BracketVisitor v1(with_visitor, resolver);
    resolver.output_fully_scoped_name_with_visitor(with_visitor, i, &v1, "::");
    BracketVisitor v2(from_m, resolver);
    resolver.output_name_in_scope_with_visitor(from_m, i, m, &v2, "::");
    BracketVisitor v3(from_other, resolver);
    resolver.output_name_in_scope_with_visitor(from_other, i, other, &v3, "_");
    EXPECT_EQ(full.str(), "M::_cxx_class::_cxx_delete");
    EXPECT_EQ(scope.str(), "M::N::");
    EXPECT_EQ(with_visitor.str(), "<M>::<N>::<I>");
    EXPECT_EQ(from_m.str(), "<N>::<I>");
    EXPECT_EQ(from_other.str(), "<M>_<N>_<I>");
}

// The kept names agree with the names written component by component, for
// every node seen from every scope (the root, enclosing scopes, a reopened
// module, unrelated scopes); each resolver keeps its own names, and a moved
// node is named anew.
TEST_F(CPPResolverTest, KeptScopedNamesAgreeWithTheWrittenNames)
{
    AST_Module* reopened = tree.module(tree.root(), "M");
    AST_Interface* j = tree.interface(reopened, "J");
    std::vector<AST_Decl*> nodes = {m, n, i, kw, op, other, reopened, j};
    std::vector<UTL_Scope*> scopes = {nullptr, tree.root()};
    for (AST_Decl* d : nodes)
        if (UTL_Scope* s = DeclAsScope(d))
            scopes.push_back(s);
    for (AST_Decl* d : nodes) {
        std::ostringstream written;
        DefaultOutputVisitor plain(written, resolver);
        resolver.output_fully_scoped_name_with_visitor(written, d, &plain, "::");
        EXPECT_EQ(resolver.scoped_name(d), written.str());
        for (UTL_Scope* from : scopes) {
            std::ostringstream seen;
            DefaultOutputVisitor seen_plain(seen, resolver);
            resolver.output_name_in_scope_with_visitor(seen, d, from, &seen_plain, "::");
            EXPECT_EQ(resolver.name_in_scope(d, from), seen.str()) << written.str();
        }
    }
    EXPECT_EQ(resolver.name_in_scope(op, DeclAsScope(reopened)), "_cxx_class::_cxx_delete");

    CPPResolver other_prefix{nullptr};
    other_prefix.set_clash_prefix("_x_");
    EXPECT_EQ(other_prefix.scoped_name(op), "M::_x_class::_x_delete");
    EXPECT_EQ(resolver.scoped_name(op), "M::_cxx_class::_cxx_delete");

    j->set_defined_in(DeclAsScope(other));
    EXPECT_EQ(resolver.scoped_name(j), "Other::J");
}

TEST_F(CPPResolverTest, PredefinedTypesHaveTheirCorbaNames)
{
    using PT = AST_PredefinedType;
    const std::pair<PT::PredefinedType, const char*> expected[] = {
        {PT::PT_long, "CORBA::Long"},         {PT::PT_ulong, "CORBA::ULong"},
        {PT::PT_longlong, "CORBA::LongLong"}, {PT::PT_ulonglong, "CORBA::ULongLong"},
        {PT::PT_short, "CORBA::Short"},       {PT::PT_ushort, "CORBA::UShort"},
        {PT::PT_float, "CORBA::Float"},       {PT::PT_double, "CORBA::Double"},
        {PT::PT_longdouble, "CORBA::LongDouble"}, {PT::PT_char, "CORBA::Char"},
        {PT::PT_wchar, "CORBA::WChar"},       {PT::PT_boolean, "CORBA::Boolean"},
        {PT::PT_octet, "CORBA::Octet"},       {PT::PT_any, "CORBA::Any"},
        {PT::PT_void, "void"},                {PT::PT_typecode, "CORBA::TypeCode_ptr"},
        {PT::PT_principal, "CORBA::Principal_ptr"}};
    for (const auto& e : expected)
        EXPECT_STREQ(resolver.get_predef_type(e.first), e.second);
}

} // namespace
