// The plug-in's frame: entry points, usage text, load-time registration,
// narrowing and the factory table.
#include "AST_Interface.h"
#include "AST_InterfaceFwd.h"
#include "AST_Module.h"
#include "AST_Root.h"
#include "AST_Structure.h"
#include "AST_Value.h"
#include "CPPResolver.h"
#include "GEN_POACxx.h"
#include "POA_OutputVisitor.h"
#include "POACxxInit.h"
#include "POA_VisitorFactories.h"
#include "YV_Shlib_Init.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace {

// Opens the generator's factory table to the test.
class FactoryGen : public GEN_POACxx {
public:
    using GEN_POACxx::init_factory_finder;
};

TEST(Plugin, InitGivesTheSameGeneratorEveryTime)
{
    CodeGenerator* first = POACxxInit();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first, POACxxInit());
    GEN_POACxx* gen = GEN_POACxx::narrow_from_gen(first);
    ASSERT_NE(gen, nullptr);
    EXPECT_STREQ(gen->plugin_name(), "POACxx");
    // The library's generator starts from the defaults.
    EXPECT_EQ(gen->poa_interfaces_on(), 1);
    EXPECT_EQ(gen->hash_max(), -1);
}

TEST(Plugin, UsageWritesExactlyItsLinesOnTheErrorStream)
{
    const std::string expected =
        "\t\t\tGenerates code for the POA C++ OMG Mapping.\n"
        "\t\t\tOptions: (colon-delimited i.e. -poa:-[opt]:-[opt])\n"
        "\t\t\t-i<path-prefix> Prepends path-prefix to generated\n"
        "\t\t\t                #include's.\n"
        "\t\t\t-d[declspec]    Creates NT declspecs for dllexport\n"
        "\t\t\t                dllimport. If you omit declspec, \n"
        "\t\t\t                idl uses the stripped filename.\n"
        "\t\t\t-c<stub-ext>    Set default stub extension.  The\n"
        "\t\t\t                default is .cxx\n"
        "\t\t\t-s<stub-ext>    Same as -c.\n"
        "\t\t\t-h<header-ext>  Set default header extension.  The\n"
        "\t\t\t                default is .hh\n"
        "\t\t\t-b<header-ext>  Set header extension for client-side\n"
        "\t\t\t                header file. The default is .hh. Should\n"
        "\t\t\t                match suffix specified with -base:-h\n"
        "\t\t\t-Oh<path>       Directory to place header(.hh) files.\n"
        "\t\t\t                Trailing directory char needed.\n"
        "\t\t\t                i.e. -Oh../include/  \n"
        "\t\t\t-Oc<path>       Directory to place stub(.cxx) files.\n"
        "\t\t\t                Trailing directory char needed.\n"
        "\t\t\t                i.e. -Oc../stub/  \n"
        "\t\t\t-p<multiple>    Set the dispatch hash table size \n"
        "\t\t\t                to be 2 to the power of <multiple>\n"
        "\t\t\t-m<pattern>     #included idl file matching <pattern>\n"
        "\t\t\t                will not #included in generated code.\n"
        "\t\t\t                i.e. -momg/orb.idl will suppress the\n"
        "\t\t\t                generation of #include<omg/orbS.hh>\n"
        "\t\t\t-xTIE           Generate POA TIE classes\n";
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    POACxxUsage();
    std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(err, expected);
}

TEST(Plugin, LibraryIsRegisteredAtLoad)
{
    const char* version = YV_Shlib_Init::version_of("yv_poa_cxx_ibe");
    ASSERT_NE(version, nullptr);
    EXPECT_STREQ(version, "3");
}

TEST(Plugin, NarrowAnswersItsOwnTagAndDefersOtherwise)
{
    GEN_POACxx gen;
    EXPECT_EQ(gen.narrow(&GEN_POACxx::_narrow_tag), static_cast<void*>(&gen));
    char other = 0;
    for (char* tag : {&GEN_CPlusPlus::_narrow_tag, &CodeGenerator::_narrow_tag, &other})
        EXPECT_EQ(gen.narrow(tag), gen.GEN_CPlusPlus::narrow(tag));
    EXPECT_EQ(GEN_POACxx::narrow_from_gen(&gen), &gen);

    GEN_CPlusPlus plain;
    EXPECT_EQ(GEN_POACxx::narrow_from_gen(&plain), nullptr);
}

TEST(Plugin, FactoryTableHoldsTheFourteenFactories)
{
    FactoryGen gen;
    gen.init_factory_finder();
    VisitorFF* ff = gen.visitorFF();
    EXPECT_EQ(ff->size(), 14u);

    VisitorFactory* hh = ff->findFactory("VIS_POA_HH");
    ASSERT_NE(hh, nullptr);
    EXPECT_EQ(VIS_POA_HH_Factory::find_factory(ff), hh);
    EXPECT_NE(VIS_POA_Impl_Factory::find_factory(ff), nullptr);
    EXPECT_NE(VIS_POA_TIE_HH_Factory::find_factory(ff), nullptr);
    EXPECT_EQ(VIS_POA_HH_Factory::narrow(VIS_POA_Impl_Factory::find_factory(ff)), nullptr);
    EXPECT_EQ(VIS_POA_Impl_Factory::narrow(hh), nullptr);
    EXPECT_EQ(VIS_POA_TIE_HH_Factory::narrow(hh), nullptr);

    // Every key, the base library's included, is found by its text and
    // narrows to its own class only.
    const std::pair<const char*, VisitorFactory*> keys[] = {
        {"VIS_Client_DeclareArgs_Typedef", VIS_Client_DeclareArgs_Typedef_Factory::find_factory(ff)},
        {"VIS_HH_ABC_OpReturn_Typedef", VIS_HH_ABC_OpReturn_Typedef_Factory::find_factory(ff)},
        {"VIS_HH_ABC_OpArg_Typedef", VIS_HH_ABC_OpArg_Typedef_Factory::find_factory(ff)},
        {"VIS_Client_SetTypeCode", VIS_Client_SetTypeCode_Factory::find_factory(ff)},
        {"VIS_Client_TypeCode", VIS_Client_TypeCode_Factory::find_factory(ff)},
        {"VIS_Client_DeclareAsst", VIS_Client_DeclareAsst_Factory::find_factory(ff)},
        {"VIS_Client_DeclareFullAsstForTypedef", VIS_Client_DeclareFullAsstForTypedef_Factory::find_factory(ff)},
        {"VIS_Client_DeclDispStreamable", VIS_Client_DeclDispStreamable_Factory::find_factory(ff)},
        {"VIS_Client_DeclareArgs", VIS_Client_DeclareArgs_Factory::find_factory(ff)},
        {"VIS_POA_HH", VIS_POA_HH_Factory::find_factory(ff)},
        {"VIS_POA_TIE_HH", VIS_POA_TIE_HH_Factory::find_factory(ff)},
        {"VIS_POA_Impl", VIS_POA_Impl_Factory::find_factory(ff)},
        {"VIS_HH_ABC_OperationArg", VIS_HH_ABC_OperationArg_Factory::find_factory(ff)},
        {"VIS_HH_ABC_OpReturn", VIS_HH_ABC_OpReturn_Factory::find_factory(ff)},
    };
    for (const auto& [key, found] : keys) {
        EXPECT_NE(found, nullptr) << key;
        EXPECT_EQ(found, ff->findFactory(key)) << key;
        for (const auto& [other_key, other] : keys)
            EXPECT_EQ(found == other, std::string(key) == other_key) << key << " / " << other_key;
    }

    // Filling the table again replaces, never adds.
    gen.init_factory_finder();
    EXPECT_EQ(ff->size(), 14u);
}

template <class T, class... Args>
T* add(UTL_Scope* scope, Args&&... args)
{
    return static_cast<T*>(scope->add_decl(std::make_unique<T>(std::forward<Args>(args)...)));
}

// Only a declaration defined at file scope gets "POA_"; names are the
// resolver's, clash prefix included.
TEST(Plugin, SkeletonNamesPrefixOnlyTheOutermostComponent)
{
    AST_Root root;
    auto* m = add<AST_Module>(&root, Identifier("M"));
    auto* n = add<AST_Module>(m, Identifier("N"));
    auto* i = add<AST_Interface>(n, Identifier("I"), false, false);
    auto* account = add<AST_Interface>(&root, Identifier("Account"), false, false);
    auto* abstract = add<AST_Interface>(&root, Identifier("Shape"), true, false);
    auto* keyword = add<AST_Interface>(&root, Identifier("class"), false, false);
    auto* fwd = add<AST_InterfaceFwd>(&root, Identifier("Later"), nullptr);
    auto* value = add<AST_Value>(&root, Identifier("V"), false, false);
    auto* inner_value = add<AST_Value>(m, Identifier("W"), false, false);
    auto* strukt = add<AST_Structure>(&root, Identifier("S"));

    GEN_POACxx gen;
    CPPResolver resolver(&gen);
    resolver.set_clash_prefix("_cxx_");
    resolver.resolve_clashes(&root);

    struct Case {
        AST_Decl* decl;
        const char* name;
    };
    for (const Case& c : {Case{account, "POA_Account"}, Case{abstract, "POA_Shape"}, Case{keyword, "POA__cxx_class"},
                          Case{fwd, "POA_Later"}, Case{value, "POA_V"}, Case{inner_value, "W"}, Case{m, "POA_M"},
                          Case{n, "N"}, Case{i, "I"}, Case{strukt, "S"}})
        EXPECT_EQ(POA_OutputVisitor::skeleton_name(resolver, c.decl), c.name);

    EXPECT_EQ(POA_OutputVisitor::skeleton_scoped_name(resolver, i, "::"), "POA_M::N::I");
    EXPECT_EQ(POA_OutputVisitor::skeleton_scoped_name(resolver, i, "_"), "POA_M_N_I");
    EXPECT_EQ(POA_OutputVisitor::skeleton_name_in_scope(resolver, i, n, "::"), "I");
    EXPECT_EQ(POA_OutputVisitor::skeleton_name_in_scope(resolver, i, m, "::"), "N::I");
    EXPECT_EQ(POA_OutputVisitor::skeleton_name_in_scope(resolver, i, &root, "::"), "POA_M::N::I");
    EXPECT_EQ(POA_OutputVisitor::skeleton_name_in_scope(resolver, account, n, "::"), "POA_Account");
}

// The library exports exactly two unmangled functions of its own.
TEST(Plugin, OnlyTheEntryPointsAreUnmangled)
{
    const std::string lib = yvtest::bin_dir() + "/../lib/libyv_poa_cxx_ibe.so";
    ASSERT_TRUE(yvtest::file_exists(lib)) << lib;
    yvtest::CommandResult r = yvtest::run_command("nm -D --defined-only '" + lib + "'");
    ASSERT_EQ(r.status, 0) << r.err;

    std::set<std::string> unmangled;
    std::istringstream lines(r.out);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream fields(line);
        std::string address, kind, name;
        if (!(fields >> address >> kind >> name))
            continue;
        if ((kind == "T" || kind == "W") && name.rfind("_Z", 0) != 0 && name[0] != '_')
            unmangled.insert(name);
    }
    EXPECT_EQ(unmangled, (std::set<std::string>{"POACxxInit", "POACxxUsage"}));
}

} // namespace
