#include "YV_HashMap.h"
#include "YV_String.h"

#include <gtest/gtest.h>

#include <set>

TEST(YV_HashMap, KeepsTheFirstValueOfAKey)
{
    YV_HashMap<YV_String, YV_String> m;
    EXPECT_TRUE(m.empty());
    EXPECT_TRUE(m.insert("omg/orb.idl", "omg/orb.idl"));
    EXPECT_FALSE(m.insert("omg/orb.idl", "other"));
    EXPECT_TRUE(m.insert("a.idl", "a.idl"));
    EXPECT_EQ(m.size(), 2u);
    ASSERT_NE(m.find("omg/orb.idl"), nullptr);
    EXPECT_EQ(*m.find("omg/orb.idl"), YV_String("omg/orb.idl"));
    EXPECT_EQ(m.find("b.idl"), nullptr);
    EXPECT_TRUE(m.contains("a.idl"));

    std::set<std::string> seen;
    m.for_each([&](const YV_String& k, const YV_String&) { seen.insert(k.str()); });
    EXPECT_EQ(seen, (std::set<std::string>{"a.idl", "omg/orb.idl"}));

    EXPECT_TRUE(m.erase("a.idl"));
    EXPECT_FALSE(m.erase("a.idl"));
    m.clear();
    EXPECT_EQ(m.size(), 0u);
}
