#include <gtest/gtest.h>

#include "platform/ansi_text.h"

TEST(ReplaceAll, ReplacesWithoutSearchingWhatItInserted) {
    struct {
        const char *text, *pattern, *replacement;
        bool ignoreCase;
        const char* result;
    } const cases[] = {
        {"<b> X <B>", "<B>", "1", true, "1 X 1"},
        {"<b> X <B>", "<B>", "1", false, "<b> X 1"},
        {"aXa", "x", "xx", true, "axxa"},
        {"aaaa", "aa", "a", false, "aa"},
        {"AbC", "", "z", true, "AbC"},
        {"", "a", "z", true, ""},
        {"ab", "abc", "z", true, "ab"},
        {"#P##p#", "#p#", "", true, ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(replaceAll(row.text, row.pattern, row.replacement, row.ignoreCase), row.result);
    }
}
