// Member declarations of an interface that uses every type kind, plain and
// pure virtual, and the members a value type takes on from the interface
// it supports.
#include "AllKindsTree.h"
#include "CPPResolver.h"
#include "GEN_CPlusPlus.h"
#include "PureVirtualHHVisit.h"
#include "VE_HH_AttrDecl.h"
#include "VE_HH_MainStartPoint_Value.h"
#include "VE_HH_OpDecl.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

class DeclarationWritersTest : public ::testing::Test {
protected:
    DeclarationWritersTest()
    {
        resolver.set_clash_prefix("_cxx_");
        resolver.resolve_clashes(t.tree.root());
        gen.set_name_resolver(&resolver);
    }

    // Every member of M::I, written at level 1 as the skeleton header and
    // the TIE pass write them (line ends added as they add them).
    std::string members(HHExtraVisit* extra, const char* format)
    {
        std::ostringstream os;
        VIS_Cxx v(os, 1, t.tree.root(), &gen);
        VE_HH_OpDecl op_decl(&v, extra, nullptr, nullptr, 1, 1, "%s");
        VE_HH_AttrDecl attr_decl(&v, extra, nullptr, nullptr, 1, 1, format);
        for (const auto& d : t.i->decls()) {
            if (AST_Operation* op = AST_Operation::narrow_from_decl(d.get())) {
                op_decl.visit(op);
                os << "\n\n";
            } else if (AST_Attribute* a = AST_Attribute::narrow_from_decl(d.get())) {
                attr_decl.output_get(a);
                os << "\n";
                if (!a->readonly()) {
                    attr_decl.output_set(a);
                    os << "|\n";
                }
            }
        }
        return os.str();
    }

    AllKindsTree t;
    GEN_CPlusPlus gen;
    CPPResolver resolver{&gen};
};

TEST_F(DeclarationWritersTest, PureVirtualMembersOfEveryKind)
{
    const std::string text = members(PureVirtualHHVisit::instance(), "_yvvar_%s");
    EXPECT_EQ(yvtest::compare_golden(std::string(YV_TEST_DATA_DIR) + "/all_kinds_pure_virtual.txt", text), "");
}

TEST_F(DeclarationWritersTest, PlainMembersStopAtTheClosingParenthesis)
{
    const std::string text = members(nullptr, "_yvvar_%s");
    EXPECT_EQ(yvtest::compare_golden(std::string(YV_TEST_DATA_DIR) + "/all_kinds_plain.txt", text), "");
}

TEST_F(DeclarationWritersTest, TypesAreNamedFromTheVisitorsScope)
{
    std::ostringstream os;
    VIS_Cxx v(os, 0, t.m, &gen);
    VE_HH_OpDecl op_decl(&v, nullptr, nullptr, nullptr, 1, 1, "p_%s");
    op_decl.visit(t.i->lookup_local("op_var"));
    EXPECT_EQ(os.str(), "VarS*\n"
                        "op_var(\n"
                        "    const VarS& p_a,\n"
                        "    VarS& p_b,\n"
                        "    VarS_out p_c\n"
                        ")");
}

TEST_F(DeclarationWritersTest, ValueTypeTakesOnEachSupportedMemberOnce)
{
    // interface Base { void ping(); };  interface Other : Base { attribute long level; };
    AST_Interface* base = t.tree.interface(t.m, "Base");
    t.tree.operation(base, t.tree.pre(AST_PredefinedType::PT_void), "ping");
    t.other->set_inherits({base});
    t.tree.attribute(t.other, false, t.tree.pre(AST_PredefinedType::PT_long), "level");

    std::ostringstream os;
    VIS_Cxx v(os, 1, t.tree.root(), &gen);
    VE_HH_MainStartPoint_Value value(&v);
    VE_HH_MainStartPoint_Value::DeclMap done;
    value.output_supported(t.value, t.other, done);
    value.output_supported(t.value, t.other, done); // nothing new the second time
    EXPECT_EQ(os.str(), "    virtual CORBA::Long\n"
                        "    level() = 0;\n"
                        "\n"
                        "    virtual void\n"
                        "    level(\n"
                        "        CORBA::Long level\n"
                        "    ) = 0;\n"
                        "\n"
                        "    virtual void\n"
                        "    ping() = 0;\n"
                        "\n");
    EXPECT_EQ(done.size(), 2u);
}

} // namespace
