// The client-side visitors as the skeleton emitters use them: found by key
// in the generator's factory finder, created for one use, accepted by a
// type.
#include "AllKindsTree.h"
#include "CPPResolver.h"
#include "GEN_CPlusPlus.h"
#include "VIS_Client_DeclDispStreamable.h"
#include "CxxVisitorFactories.h"
#include "VIS_Client_DeclareArgs.h"
#include "VIS_Client_DeclareAsst.h"
#include "VIS_Client_SetTypeCode.h"
#include "VIS_Client_TypeCode.h"
#include "VIS_HH_ABC_OpReturn.h"
#include "VIS_HH_ABC_OperationArg.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

namespace {

class ClientVisitorsTest : public ::testing::Test {
protected:
    ClientVisitorsTest()
    {
        resolver.set_clash_prefix("_cxx_");
        gen.set_name_resolver(&resolver);
        gen.init_factory_finder();
    }

    AST_Operation* op(const char* name) { return AST_Operation::narrow_from_decl(t.i->lookup_local(name)); }
    AST_Argument* arg(const char* op_name, std::size_t n)
    {
        return AST_Argument::narrow_from_decl(op(op_name)->decls().at(n).get());
    }

    AllKindsTree t;
    GEN_CPlusPlus gen;
    CPPResolver resolver{&gen};
    std::ostringstream out;
};

TEST_F(ClientVisitorsTest, EveryBaseFactoryIsRegisteredUnderItsKey)
{
    EXPECT_EQ(gen.visitorFF()->size(), 11u);
    EXPECT_NE(VIS_Client_DeclareAsst_Factory::find_factory(gen.visitorFF()), nullptr);
    EXPECT_NE(VIS_Client_DeclareArgs_Factory::find_factory(gen.visitorFF()), nullptr);
    EXPECT_NE(VIS_Client_DeclDispStreamable_Factory::find_factory(gen.visitorFF()), nullptr);
    EXPECT_NE(VIS_Client_TypeCode_Factory::find_factory(gen.visitorFF()), nullptr);
    EXPECT_NE(VIS_HH_ABC_OpReturn_Factory::find_factory(gen.visitorFF()), nullptr);
    // A factory is never taken for another class.
    EXPECT_EQ(VIS_HH_ABC_OpReturn_Factory::narrow(gen.visitorFF()->findFactory(VIS_Client_TypeCode_Factory::FFKey)),
              nullptr);
}

TEST_F(ClientVisitorsTest, StreamableClassNameIsWrittenInline)
{
    auto* f = VIS_Client_DeclareAsst_Factory::find_factory(gen.visitorFF());
    std::unique_ptr<VIS_Client_DeclareAsst> v(f->create_VIS_Client_DeclareAsst(out, 3, t.tree.root(), &gen, 0x8000));
    arg("op_seq2", 0)->field_type()->accept(v.get());
    out << "|";
    arg("op_long", 0)->field_type()->accept(v.get());
    EXPECT_EQ(out.str(), "YV_Cxx::VarStreamable<M::LongSeq2>|YV_Cxx::BasicStreamable<CORBA::Long>");
}

TEST_F(ClientVisitorsTest, ArgumentVariablesOfARequestBasedBody)
{
    auto* f = VIS_Client_DeclareArgs_Factory::find_factory(gen.visitorFF());
    for (const char* name : {"op_var", "op_string", "op_vararr"})
        for (std::size_t n = 0; n < 3; ++n) {
            AST_Argument* a = arg(name, n);
            std::unique_ptr<VIS_Client_DeclareArgs> v(f->create_VIS_Client_DeclareArgs(out, 1, t.tree.root(), &gen, a));
            a->field_type()->accept(v.get());
        }
    EXPECT_EQ(out.str(), "    M::VarS a;\n    M::VarS b;\n    M::VarS* c;\n"
                         "    char* a;\n    char* b;\n    char* c;\n"
                         "    M::StrArr a;\n    M::StrArr b;\n    M::StrArr_slice* c;\n");
}

TEST_F(ClientVisitorsTest, StreamableBoundToAValue)
{
    auto* f = VIS_Client_DeclDispStreamable_Factory::find_factory(gen.visitorFF());
    std::unique_ptr<VIS_Client_DeclDispStreamable> v(f->create_VIS_Client_DeclDispStreamable(
        out, 2, t.tree.root(), &gen, "_yvvar_a", "a", "&a", "_yvl_target_orb", 0x21, nullptr));
    arg("op_intf", 0)->field_type()->accept(v.get());
    EXPECT_EQ(out.str(), "        YV_Cxx::ObjRefStreamable<M::Other> _yvvar_a(&a, _yvl_target_orb, 0x21);\n");
}

TEST_F(ClientVisitorsTest, ResultAndParameterTypes)
{
    std::unique_ptr<VIS_HH_ABC_OpReturn> r(
        VIS_HH_ABC_OpReturn_Factory::find_factory(gen.visitorFF())->create_VIS_HH_ABC_OpReturn(out, 1, t.tree.root(), &gen));
    op("op_arr")->return_type()->accept(r.get());
    out << "|";
    op("op_void")->return_type()->accept(r.get());
    out << "|";
    std::unique_ptr<VIS_HH_ABC_OperationArg> p(VIS_HH_ABC_OperationArg_Factory::find_factory(gen.visitorFF())
                                                   ->create_VIS_HH_ABC_OperationArg(out, 1, t.tree.root(), &gen));
    arg("op_any", 2)->accept(p.get());
    EXPECT_EQ(out.str(), "M::LongArr_slice*|void|CORBA::Any_out");
}

TEST_F(ClientVisitorsTest, BoundedStringTypeCodesAreGuardedPerBound)
{
    auto* f = VIS_Client_TypeCode_Factory::find_factory(gen.visitorFF());
    AST_String* same_bound = t.tree.anon<AST_String>(t.i, false, 10, true);
    AST_String* wide = t.tree.anon<AST_String>(t.i, true, 10, true);
    for (AST_String* s : {t.bounded, same_bound, wide}) {
        std::unique_ptr<VIS_Client_TypeCode> v(f->create_VIS_Client_TypeCode(out, 0, s->defined_in(), &gen));
        s->accept(v.get());
    }
    const std::string one = "#ifndef _YV_TC_DEFINED_string_10\n"
                            "#define _YV_TC_DEFINED_string_10\n"
                            "static CORBA::TypeCode _yv_tc_string_10(CORBA::tk_string, 10);\n"
                            "#endif\n";
    EXPECT_EQ(out.str(), one + one +
                             "#ifndef _YV_TC_DEFINED_wstring_10\n"
                             "#define _YV_TC_DEFINED_wstring_10\n"
                             "static CORBA::TypeCode _yv_tc_wstring_10(CORBA::tk_wstring, 10);\n"
                             "#endif\n");
    // An unbounded string needs no definition of its own.
    out.str("");
    std::unique_ptr<VIS_Client_TypeCode> v(f->create_VIS_Client_TypeCode(out, 0, t.tree.root(), &gen));
    arg("op_string", 0)->field_type()->accept(v.get());
    EXPECT_EQ(out.str(), "");
}

TEST_F(ClientVisitorsTest, SettingAnAnysTypeCode)
{
    std::unique_ptr<VIS_Client_SetTypeCode> v(VIS_Client_SetTypeCode_Factory::find_factory(gen.visitorFF())
                                                  ->create_VIS_Client_SetTypeCode(out, 1, t.tree.root(), &gen));
    v->set_any_name("holder");
    arg("op_union", 0)->field_type()->accept(v.get());
    EXPECT_EQ(out.str(), "    holder.type(M::_tc_U);\n");
}

} // namespace
