// The interface graph and the narrowing members that skeleton emitters
// share.
#include "CPPResolver.h"
#include "CxxTestTree.h"
#include "CxxTypeQueries.h"
#include "DefaultOutputVisitor.h"
#include "GEN_CPlusPlus.h"
#include "VE_Client_Interface.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

// Names a declaration at the root scope with "POA_" in front, as the
// skeleton name printer does.
class PrefixVisitor : public virtual DefaultOutputVisitor {
public:
    PrefixVisitor(std::ostream& os, NameResolver& r) : Visitor_i(nullptr, nullptr), DefaultOutputVisitor(os, r) {}
    long visit_AST_Module(AST_Module* n) override { return prefixed(n); }
    long visit_AST_Interface(AST_Interface* n) override { return prefixed(n); }

private:
    long prefixed(AST_Decl* d)
    {
        if (isRootScope(d->defined_in()))
            stream() << "POA_";
        return write_name(d);
    }
};

class VE_Client_InterfaceTest : public ::testing::Test {
protected:
    VE_Client_InterfaceTest()
    {
        resolver.set_clash_prefix("_cxx_");
        gen.set_name_resolver(&resolver);
        AST_Type* lng = tree.pre(AST_PredefinedType::PT_long);
        m = tree.module(tree.root(), "M");
        // A : -, B : A, C : A, D : B, C (a diamond).
        a = tree.interface(m, "A");
        tree.operation(a, lng, "a_op");
        b = tree.interface(m, "B", {a});
        tree.attribute(b, true, lng, "b_ro");
        c = tree.interface(m, "C", {a});
        tree.attribute(c, false, lng, "c_rw");
        d = tree.interface(m, "D", {b, c});
        tree.operation(d, lng, "d_op1");
        tree.operation(d, lng, "d_op2");
        tree.attribute(d, false, lng, "d_rw");
    }

    CxxTestTree tree;
    GEN_CPlusPlus gen;
    CPPResolver resolver{&gen};
    AST_Module* m;
    AST_Interface* a;
    AST_Interface* b;
    AST_Interface* c;
    AST_Interface* d;
    std::ostringstream out;
    VIS_Cxx visitor{out, 0, tree.root(), &gen};
    VE_Client_Interface emitter{&visitor};
};

TEST_F(VE_Client_InterfaceTest, DiamondIsCollectedDepthFirstEachOnceWithItsKeys)
{
    std::vector<AST_Interface*> all;
    long counter = 3;
    emitter.find_all_interfaces(d, all, counter);
    EXPECT_EQ(all, (std::vector<AST_Interface*>{d, b, a, c}));
    // D: 2 operations + 2 for its writable attribute; B: 1; A: 1; C: 2.
    EXPECT_EQ(counter, 3 + 4 + 1 + 1 + 2);

    // An interface already collected is skipped with its keys.
    long again = 0;
    emitter.find_all_interfaces(b, all, again);
    EXPECT_EQ(all.size(), 4u);
    EXPECT_EQ(again, 0);
}

TEST_F(VE_Client_InterfaceTest, NarrowTagAndItsVariable)
{
    PrefixVisitor poa(out, resolver);
    emitter.outputNarrowTag(d, &poa);
    out << "|";
    emitter.outputNarrowTagVar(d, &poa);
    EXPECT_EQ(out.str(), "char POA_M::D::_narrow_tag = 0;|POA_M::D::_narrow_tag");
}

TEST_F(VE_Client_InterfaceTest, LocalNarrowAsksEachDirectBaseInOrder)
{
    PrefixVisitor poa(out, resolver);
    emitter.output_local_narrow(d, &poa, nullptr);
    EXPECT_EQ(out.str(), "void*\n"
                         "POA_M::D::_local_narrow(\n"
                         "    const char* tag\n"
                         ")\n"
                         "{\n"
                         "    if (tag == &POA_M::D::_narrow_tag)\n"
                         "        return this;\n"
                         "    if (void* base = POA_M::B::_local_narrow(tag))\n"
                         "        return base;\n"
                         "    if (void* base = POA_M::C::_local_narrow(tag))\n"
                         "        return base;\n"
                         "    return 0;\n"
                         "}\n");
}

TEST_F(VE_Client_InterfaceTest, LocalNarrowOfARootInterfaceEndsAtTheServantBase)
{
    PrefixVisitor poa(out, resolver);
    emitter.output_local_narrow(a, &poa, nullptr);
    EXPECT_NE(out.str().find("    return PortableServer::ServantBase::_local_narrow(tag);\n}\n"), std::string::npos);
    out.str("");
    emitter.output_local_narrow(a, &poa, "My::Base");
    EXPECT_NE(out.str().find("    return My::Base::_local_narrow(tag);\n"), std::string::npos);
}

} // namespace
