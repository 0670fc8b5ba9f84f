#include "platform/registry_key.h"

#include <gtest/gtest.h>

TEST(RegistryKey, HasTextsWithinTheDataOnly) {
    EXPECT_TRUE(isStringType(1) && isStringType(2));
    EXPECT_FALSE(isStringType(0) || isStringType(3) || isStringType(7));
    EXPECT_TRUE(isTerminated(nullptr, 0) && isTerminated("ab", 3));
    EXPECT_FALSE(isTerminated("ab", 2));
    EXPECT_EQ(textOfData("ABCDEF", 4), "ABCD");
    EXPECT_EQ(textOfData("AB\0CD", 5), "AB");
    EXPECT_EQ(textOfData(nullptr, 0), "");
}
