#include <gtest/gtest.h>

#include "installed/registry_key.h"

TEST(RegistryText, StaysWithinTheData) {
    for (unsigned long type = 0; type < 12; ++type) {
        EXPECT_EQ(isStringType(type), type == 1 || type == 2) << type;
    }
    EXPECT_TRUE(isTerminated(nullptr, 0));
    EXPECT_TRUE(isTerminated("ab", 3));
    EXPECT_FALSE(isTerminated("ab", 2));
    EXPECT_EQ(textOfData("ABCDEF", 4), "ABCD");
    EXPECT_EQ(textOfData("AB\0CD", 5), "AB");
    EXPECT_EQ(textOfData(nullptr, 0), "");
}
