#include "catalogue/contact_text.h"

#include "tests/rows.h"

TEST(ContactText, FollowsTheCode) {
    const std::string lines = contactText("1k", contact_layout::lines);
    const std::string viewer = contactText("1q", contact_layout::lines);
    EXPECT_TRUE(viewer.starts_with("For technical support please go to:\n\nhttp"));
    EXPECT_EQ(contactText("1Q", contact_layout::columns), viewer);
    expectRows<std::string, std::string>(
        {{"zz", lines}, {"00", lines}, {"1Q", viewer}, {"", ""}, {"0i", ""}, {"**", ""}},
        [](const std::string& code) { return contactText(code, contact_layout::lines); });
    EXPECT_EQ(contactText("1k", contact_layout::columns), contact_layout::columns);
}
