#include "catalogue/contact_text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

TEST(ContactText, FollowsTheCode) {
    const std::string lines = contactText("1k", ContactLayout::Lines);
    const std::string columns = contactText("1k", ContactLayout::Columns);
    EXPECT_TRUE(lines.starts_with("Halvick Test Equipment\n"));
    EXPECT_TRUE(lines.ends_with("\n"));
    EXPECT_EQ(std::count(columns.begin(), columns.end(), '\t'), 4);
    // Both layouts give the same particulars.
    std::string particular;
    for (const char character : columns) {
        if (character != '\t' && character != '\n') {
            particular += character;
            continue;
        }
        EXPECT_NE(lines.find(particular + '\n'), std::string::npos) << particular;
        particular.clear();
    }
    EXPECT_EQ(contactText("zz", ContactLayout::Lines), lines);
    EXPECT_EQ(contactText("00", ContactLayout::Lines), lines);

    const std::string viewer = contactText("1q", ContactLayout::Lines);
    EXPECT_TRUE(viewer.starts_with("For technical support please go to:\n\nhttp"));
    EXPECT_EQ(contactText("1Q", ContactLayout::Columns), viewer);

    for (const char* const code : {"", "0i", "**"}) {
        EXPECT_EQ(contactText(code, ContactLayout::Lines), "") << code;
    }
}

}  // namespace
