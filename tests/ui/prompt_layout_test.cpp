#include <gtest/gtest.h>

#include <string>

#include "ui/install_dialog.h"

TEST(PromptLayout, SplitsAtBreaks) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "[]"},
        {"one", "[one]"},
        {"a\nb\rc", "[a][b][c]"},
        {"a\r\nb\n\rc", "[a][b][c]"},
        {"a\n\nb", "[a][][b]"},
        {"a\r\n\r\nb", "[a][][b]"},
        {"\na", "[][a]"},
        {"a\n", "[a\n]"},
        {"a\r", "[a\r]"},
        {"\n", "[\n]"},
        {"a\n\n", "[a][\n]"},
        {"a\r\n", "[a][]"},
        {"a\n\r\n", "[a][\n]"},
    };
    for (const auto& [prompt, expected] : cases) {
        std::string lines;
        for (const std::string_view& line : promptLines(prompt)) {
            lines.append("[").append(line).append("]");
        }
        EXPECT_EQ(lines, expected);
    }
}

TEST(PromptLayout, GrowsByTheLinesThatDoNotFit) {
    struct {
        std::vector<TextExtent> lines;
        int height, growth;
    } const cases[] = {
        {{{100, 13}}, 23, 0},
        {{{100, 13}}, 14, 0},
        {{{100, 13}}, 12, 5},
        {{{9, 13}, {9, 13}, {9, 13}, {9, 13}, {9, 13}}, 23, 46},
        {{{300, 13}}, 13, 4},       // as wide as the control
        {{{301, 13}}, 13, 13 + 4},  // a little wider: 2 lines
        {{{599, 13}}, 13, 13 + 4},
        {{{600, 13}}, 13, 26 + 4},        // exactly 2 times: 3 lines
        {{{450, 10}, {20, 16}}, 16, 36},  // the last line's height counts for all
    };
    for (const auto& test : cases) {
        EXPECT_EQ(promptGrowth(test.lines, 300, test.height), test.growth) << test.lines[0].width;
    }
}
