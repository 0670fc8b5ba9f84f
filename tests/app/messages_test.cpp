#include "app/messages.h"

#include <gtest/gtest.h>

// Their texts are held against the field guide by tests/scripts/field_guide_test.py.
TEST(Message, TitleEndsAfter260Characters) {
    EXPECT_EQ(installTitle("Name", std::string(300, '1')), "Name " + std::string(255, '1'));
}
