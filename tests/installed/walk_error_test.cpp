#include "installed/walk_error.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(WalkError, HoldsTheLastDescriptionCutToItsSize) {
    setWalkError(std::string(3000, 'x'));
    EXPECT_EQ(walkError(), std::string(2048, 'x'));
    setWalkError("short");
    EXPECT_STREQ(walkError(), "short");
    setWalkError("");
    EXPECT_STREQ(walkError(), "");
}

}  // namespace
