#include "installed/key_tree_walk_win.h"

#include <gtest/gtest.h>

#include <string>

TEST(WalkError, HoldsTheLastDescriptionCutToItsSize) {
    setWalkError(std::string(3000, 'x'));
    EXPECT_EQ(walkError(), std::string(2048, 'x'));
    setWalkError("");
    EXPECT_STREQ(walkError(), "");
}
