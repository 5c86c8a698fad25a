#include "YV_String.h"
#include "YV_hash_string.h"

#include <gtest/gtest.h>

#include <sstream>

TEST(YV_String, StreamsWords)
{
    std::istringstream in("  -xTIE\t+xAMICallbacks ");
    YV_String a, b, c;
    in >> a >> b;
    EXPECT_EQ(a, YV_String("-xTIE"));
    EXPECT_EQ(b, YV_String("+xAMICallbacks"));
    EXPECT_FALSE(in >> c);
}

// The hash is part of the contract with the runtime: pin a few values.
TEST(YV_hash_string, IsFnv1a64)
{
    EXPECT_EQ(YV_hash_string(""), 0xcbf29ce484222325ULL);
    EXPECT_EQ(YV_hash_string("a"), 0xaf63dc4c8601ec8cULL);
    EXPECT_EQ(YV_hash_string("foobar"), 0x85944171f73967e8ULL);
    EXPECT_EQ(YV_hash_slot("a", 1), 0u);
    EXPECT_EQ(YV_hash_slot("a", 16), 0xcu);
}

TEST(YV_String, NullAndEmptyTexts)
{
    YV_String fromNull(static_cast<const char*>(nullptr));
    EXPECT_TRUE(fromNull.empty());
    EXPECT_STREQ(fromNull.c_str(), "");
    EXPECT_EQ(fromNull, YV_String(""));
    EXPECT_EQ(fromNull.find("x"), YV_String::npos);
    EXPECT_EQ(fromNull.rfind('.'), YV_String::npos);
    EXPECT_EQ(fromNull.substr(0), YV_String());
}
