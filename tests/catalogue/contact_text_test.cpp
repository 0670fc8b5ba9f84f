#include "catalogue/contact_text.h"

#include <algorithm>
#include <sstream>

#include "tests/rows.h"

TEST(ContactText, FollowsTheCode) {
    const std::string lines = contactText("1k", contact_layout::lines);
    const std::string viewer = contactText("1q", contact_layout::lines);
    EXPECT_TRUE(viewer.starts_with("For technical support please go to:\n\nhttp"));
    EXPECT_EQ(contactText("1Q", contact_layout::columns), viewer);
    expectRows<std::string, std::string>(
        {{"zz", lines}, {"00", lines}, {"1Q", viewer}, {"", ""}, {"0i", ""}, {"**", ""}},
        [](const std::string& code) { return contactText(code, contact_layout::lines); });
    // Two columns, of the same particulars.
    std::string columns = contactText("1k", contact_layout::columns);
    EXPECT_EQ(std::count(columns.begin(), columns.end(), '\t'), 4);
    std::replace(columns.begin(), columns.end(), '\t', '\n');
    std::istringstream particulars(columns);
    for (std::string particular; std::getline(particulars, particular);) {
        EXPECT_NE(lines.find(particular + '\n'), std::string::npos) << particular;
    }
}
