#include "ui/ask_uninstall_dialog.h"

#include "tests/rows.h"

TEST(AskUninstallDialog, HasColumnsThatGrowWithTheDisplay) {
    expectRows<int, std::string>(
        {{96, "20, 400"}, {120, "25, 500"}, {144, "30, 600"}, {192, "40, 800"}, {0, "20, 400"}},
        [](int dotsPerInch) {
            const ListColumnWidths widths = listColumnWidths(dotsPerInch);
            return std::to_string(widths.tick) + ", " + std::to_string(widths.name);
        });
}

TEST(AskUninstallDialog, SortsInOneOrderOnly) {
    EXPECT_GT(compareLowerCaseNames("\xE9", "z", 1), 0);
    EXPECT_EQ(compareLowerCaseNames("alpha 12", "beta 2", 0), 0);
}
