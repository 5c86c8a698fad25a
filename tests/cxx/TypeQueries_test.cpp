// Fixed or variable length of types that hold each other many times over:
// each type is worked out once, so 64 structures each holding the previous
// one twice (2^64 paths) take no longer than 64 structures in a row.
#include "AST_Root.h"
#include "AST_Type.h"
#include "CxxTypeQueries.h"
#include "IDL_Frontend.h"
#include "UTL_Scope.h"
#include "YV_TestSupport.h"

#include <gtest/gtest.h>

#include <string>

namespace {

AST_Type* last_type(IDL_GlobalData& data)
{
    const auto& decls = data.root()->decls();
    return decls.empty() ? nullptr : AST_Type::narrow_from_decl(decls.back().get());
}

TEST(TypeQueries, TypesHeldManyTimesOverAreWorkedOutOnce)
{
    struct Case {
        const char* first;   // the innermost type
        const char* each;    // "@" the type, "$" the previous one
        bool fixed;
    } cases[] = {
        {"struct T0 { long a; };", "struct T@ { T$ a; T$ b; };", true},
        {"struct T0 { string a; };", "struct T@ { T$ a; T$ b; };", false},
        {"union T0 switch (long) { case 1: long a; };", "union T@ switch (long) { case 0: T$ a; case 1: T$ b; };", true},
        {"struct T0 { long a; };", "typedef T$ A@[2]; struct T@ { A@ a; A@ b; };", true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.each);
        const std::string text = std::string(c.first) + "\n" + yvtest::numbered(std::string(c.each) + "\n", 1, 64);
        std::unique_ptr<IDL_GlobalData> data = IDL_Frontend(IDL_FrontendOptions()).parse_text("t.idl", text);
        ASSERT_TRUE(data);
        AST_Type* last = last_type(*data);
        ASSERT_TRUE(last);
        EXPECT_EQ(isFixedLength(last), c.fixed);
        EXPECT_EQ(isFixedLength(last), c.fixed);  // asked again: the kept answer
    }
}

} // namespace
