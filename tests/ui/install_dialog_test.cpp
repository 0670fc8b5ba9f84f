#include "ui/install_dialog.h"

#include "tests/rows.h"

TEST(InstallDialog, SplitsThePromptAtBreaks) {
    using Lines = std::vector<std::string_view>;
    expectRows<std::string, Lines>({{"", {""}},
                                    {"a\nb\rc", {"a", "b", "c"}},
                                    {"a\r\nb\n\rc", {"a", "b", "c"}},
                                    {"a\n\nb", {"a", "", "b"}},
                                    {"\na", {"", "a"}},
                                    {"a\n", {"a\n"}},
                                    {"a\r", {"a\r"}},
                                    {"a\n\n", {"a", "\n"}},
                                    {"a\r\n", {"a", ""}},
                                    {"a\n\r\n", {"a", "\n"}}},
                                   promptLines);
}

TEST(InstallDialog, GrowsByTheLinesThatDoNotFit) {
    using Lines = std::vector<TextExtent>;
    expectRows<std::tuple<Lines, int>, int>(
        {
            {{Lines{{100, 13}}, 14}, 0},
            {{Lines{{100, 13}}, 12}, 5},
            {{Lines(5, {9, 13}), 23}, 46},
            {{Lines{{300, 13}}, 13}, 4},       // as wide as the control
            {{Lines{{301, 13}}, 13}, 13 + 4},  // a little wider: 2 lines
            {{Lines{{599, 13}}, 13}, 13 + 4},
            {{Lines{{600, 13}}, 13}, 26 + 4},        // exactly 2 times: 3 lines
            {{Lines{{450, 10}, {20, 16}}, 16}, 36},  // the last line's height counts for all
        },
        [](const Lines& lines, int height) { return promptGrowth(lines, 300, height); });
}

TEST(InstallDialog, DrawsItsIconInTheMiddle) {
    expectRows<std::tuple<int, int>, int>(
        {{{100, 32}, 34}, {{101, 32}, 35}, {{32, 32}, 0}, {{0, 32}, -15}}, centredOffset);
}
