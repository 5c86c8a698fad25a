// The reply-handler interface of the callback model made for an interface.
#include "AllKindsTree.h"
#include "AST_Value.h"
#include "CPPResolver.h"
#include "GEN_CPlusPlus.h"
#include "VE_Client_Interface.h"
#include "VE_HH_MainStartPoint_Interface.h"

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

namespace {

// "name(in T1 a1, in T2 a2)" for each operation of the interface, with
// types and the interface's bases fully scoped.
std::string signature(AST_Interface* h, NameResolver& r)
{
    std::ostringstream os;
    r.output_fully_scoped_name(os, h);
    os << " :";
    for (AST_Interface* b : h->inherits()) {
        os << " ";
        r.output_fully_scoped_name(os, b);
    }
    os << "\n";
    for (const auto& d : h->decls()) {
        AST_Operation* op = AST_Operation::narrow_from_decl(d.get());
        if (!op)
            continue;
        os << op->local_name()->str() << "(";
        bool first = true;
        for (const auto& a : op->decls()) {
            AST_Argument* arg = AST_Argument::narrow_from_decl(a.get());
            os << (first ? "" : ", ") << (arg->direction() == AST_Argument::dir_IN ? "in " : "?? ");
            r.output_fully_scoped_name(os, arg->field_type());
            os << " " << arg->local_name()->str();
            first = false;
        }
        os << ")\n";
    }
    return os.str();
}

class AMIHandlerTest : public ::testing::Test {
protected:
    AMIHandlerTest()
    {
        AST_Type* lng = t.tree.pre(AST_PredefinedType::PT_long);
        AST_Type* vd = t.tree.pre(AST_PredefinedType::PT_void);
        base = t.tree.interface(t.m, "Base");
        t.tree.attribute(base, false, lng, "level");
        derived = t.tree.interface(t.m, "Derived", {base});
        t.tree.operation(derived, lng, "op", {arg_in(lng, "a"), arg_inout(lng, "b"), arg_out(t.kinds[7].second, "c")});
        t.tree.operation(derived, vd, "plain");
        t.tree.add<AST_Operation>(derived, vd, AST_Operation::OP_oneway, Identifier("fire"));
        t.tree.attribute(derived, true, lng, "count");
        gen.set_name_resolver(&resolver);
    }

    AllKindsTree t;
    AST_Interface* base;
    AST_Interface* derived;
    GEN_CPlusPlus gen;
    CPPResolver resolver{&gen};
    std::ostringstream out;
    VIS_Cxx visitor{out, 0, t.tree.root(), &gen};
    VE_HH_MainStartPoint_Interface emitter{&visitor};
};

TEST_F(AMIHandlerTest, RepliesOfOperationsAndAttributes)
{
    std::unique_ptr<AST_Interface> h(emitter.create_full_ami_handler(derived));
    ASSERT_NE(h, nullptr);
    EXPECT_FALSE(h->is_local());
    EXPECT_FALSE(h->is_abstract());
    EXPECT_EQ(h->defined_in(), static_cast<UTL_Scope*>(t.m));
    EXPECT_EQ(t.m->lookup_local("AMI_DerivedHandler"), nullptr); // not entered into the tree
    EXPECT_EQ(signature(h.get(), resolver),
              "M::AMI_DerivedHandler : M::AMI_BaseHandler\n"
              "op(in long ami_return_val, in long b, in M::VarS c)\n"
              "op_excep(in Messaging::ExceptionHolder excep_holder)\n"
              "plain()\n"
              "plain_excep(in Messaging::ExceptionHolder excep_holder)\n"
              "get_count_complete(in long ami_return_val)\n"
              "get_count_excep(in Messaging::ExceptionHolder excep_holder)\n");
    AST_Interface* base_handler = h->inherits().front();
    EXPECT_EQ(signature(base_handler, resolver),
              "M::AMI_BaseHandler : Messaging::ReplyHandler\n"
              "get_level_complete(in long ami_return_val)\n"
              "get_level_excep(in Messaging::ExceptionHolder excep_holder)\n"
              "set_level_complete()\n"
              "set_level_excep(in Messaging::ExceptionHolder excep_holder)\n");
    // The exception holder is a value type of module Messaging.
    AST_Operation* excep = AST_Operation::narrow_from_decl(base_handler->lookup_local("get_level_excep"));
    AST_Argument* holder = AST_Argument::narrow_from_decl(excep->decls().front().get());
    EXPECT_NE(AST_Value::narrow_from_decl(holder->field_type()), nullptr);
    AST_Operation* reply = AST_Operation::narrow_from_decl(h->lookup_local("plain"));
    EXPECT_EQ(AST_PredefinedType::narrow_from_decl(reply->return_type())->pt(), AST_PredefinedType::PT_void);
}

TEST_F(AMIHandlerTest, RepositoryIdFollowsTheInterfaces)
{
    derived->set_repoID("IDL:acme.com/M/Derived:1.1");
    std::unique_ptr<AST_Interface> h(emitter.create_full_ami_handler(derived));
    EXPECT_EQ(h->repoID(), "IDL:acme.com/M/AMI_DerivedHandler:1.1");
}

TEST_F(AMIHandlerTest, DiamondBasesShareOneHandler)
{
    AST_Interface* left = t.tree.interface(t.m, "Left", {base});
    AST_Interface* right = t.tree.interface(t.m, "Right", {base});
    AST_Interface* bottom = t.tree.interface(t.m, "Bottom", {left, right});
    std::unique_ptr<AST_Interface> h(emitter.create_full_ami_handler(bottom));
    std::vector<AST_Interface*> all;
    long keys = 0;
    VE_Client_Interface graph(&visitor);
    graph.find_all_interfaces(h.get(), all, keys);
    std::ostringstream names;
    for (AST_Interface* i : all)
        names << resolver.local_name(i) << " ";
    EXPECT_EQ(names.str(), "AMI_BottomHandler AMI_LeftHandler AMI_BaseHandler ReplyHandler AMI_RightHandler ");
    EXPECT_EQ(keys, 4);
}

TEST_F(AMIHandlerTest, MessagingNodesOfTheTreeAreUsedWhenPresent)
{
    AST_Module* messaging = t.tree.module(t.tree.root(), "Messaging");
    AST_Interface* reply_handler = t.tree.interface(messaging, "ReplyHandler");
    AST_Value* holder = t.tree.add<AST_Value>(messaging, Identifier("ExceptionHolder"), false, false);
    std::unique_ptr<AST_Interface> h(emitter.create_full_ami_handler(base));
    EXPECT_EQ(h->inherits().front(), reply_handler);
    AST_Operation* excep = AST_Operation::narrow_from_decl(h->lookup_local("get_level_excep"));
    EXPECT_EQ(AST_Argument::narrow_from_decl(excep->decls().front().get())->field_type(), holder);
}

} // namespace
