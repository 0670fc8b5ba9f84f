#include <gtest/gtest.h>

#include "installed/ask_uninstall_dialog.h"

TEST(UninstallPrompt, SpeaksOfOneVersionOrOfSeveral) {
    for (const std::size_t count : {0u, 1u, 2u, 3u}) {
        const std::string plural = count == 1 ? "" : "s", object = count == 1 ? "it" : "them";
        EXPECT_EQ(uninstallPromptTexts(count).found,
                  "We found the following version" + plural +
                      " of the Tavlink Protocol Analysis System software on your computer:");
        EXPECT_EQ(uninstallPromptTexts(count).question,
                  "Would you like to uninstall " + object + "?");
    }
}

TEST(UninstallPrompt, HasColumnsThatGrowWithTheDisplay) {
    const struct {
        int dotsPerInch, tick, name;
    } table[] = {{96, 20, 400}, {120, 25, 500}, {144, 30, 600}, {192, 40, 800}, {0, 20, 400}};
    for (const auto& row : table) {
        const ListColumnWidths widths = listColumnWidths(row.dotsPerInch);
        EXPECT_EQ(widths.tick, row.tick) << row.dotsPerInch;
        EXPECT_EQ(widths.name, row.name) << row.dotsPerInch;
    }
}

TEST(UninstallPrompt, SortsInOneOrderOnly) {
    EXPECT_LT(compareLowerCaseNames("alpha 12", "beta 2", 1), 0);
    EXPECT_GT(compareLowerCaseNames("\xE9", "z", 1), 0);
    EXPECT_EQ(compareLowerCaseNames("alpha 12", "beta 2", 0), 0);
}

TEST(UninstallPrompt, RunsEveryProductOfATickedNameForEveryTick) {
    const std::vector<InstalledProduct> products{
        {"Beta", "b1", ""}, {"Alpha", "a", ""}, {"Beta", "b2", ""}, {"beta", "lower", ""}};
    using Commands = std::vector<std::string>;
    EXPECT_EQ(uninstallCommands({}, products), Commands());
    EXPECT_EQ(uninstallCommands({"Alpha", "Beta"}, products), (Commands{"a", "b1", "b2"}));
    EXPECT_EQ(uninstallCommands({"Beta", "Beta"}, products), (Commands{"b1", "b2", "b1", "b2"}));
}
