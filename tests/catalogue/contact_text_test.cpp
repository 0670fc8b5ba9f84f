#include "catalogue/contact_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

TEST(ContactText, FollowsTheCode) {
    const std::string lines = contactText("1k", ContactLayout::Lines);
    const std::string columns = contactText("1k", ContactLayout::Columns);
    EXPECT_TRUE(lines.starts_with("Halvick Test Equipment\n") && lines.ends_with("\n"));
    EXPECT_EQ(std::count(columns.begin(), columns.end(), '\t'), 4);
    std::string asColumns = columns;
    std::replace(asColumns.begin(), asColumns.end(), '\t', '\n');
    std::istringstream particulars(asColumns);
    for (std::string particular; std::getline(particulars, particular);) {
        EXPECT_NE(lines.find(particular + '\n'), std::string::npos) << particular;
    }
    const std::string viewer = contactText("1q", ContactLayout::Lines);
    EXPECT_TRUE(viewer.starts_with("For technical support please go to:\n\nhttp"));
    EXPECT_EQ(contactText("1Q", ContactLayout::Columns), viewer);
    for (const auto& [code, text] :
         {std::pair("zz", lines), std::pair("00", lines), std::pair("", std::string()),
          std::pair("0i", std::string()), std::pair("**", std::string())}) {
        EXPECT_EQ(contactText(code, ContactLayout::Lines), text) << code;
    }
}
