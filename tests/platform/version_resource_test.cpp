#include <gtest/gtest.h>

#include <vector>

#include "platform/file_version.h"

TEST(VersionResource, TextStaysInsideTheBlock) {
    const char content[] =
        "12\0"
        "34567";                                          // NOLINT
    const std::vector<char> bytes(content, content + 8);  // exact, for the sanitizer
    const std::string_view block(bytes.data(), bytes.size());
    struct {
        std::ptrdiff_t offset;
        std::size_t length;
        const char* text;
    } const cases[] = {
        // The length is not looked at, but for 0.
        {0, 3, "Version 12"}, {0, 1, "Version 12"},
        {2, 1, "Version "},   {3, 0xFFFFFFFF, "Version 34567"},
        {0, 0, ""},           {8, 4, ""},
    };
    for (const auto& row : cases) {
        EXPECT_EQ(versionResourceText(block, bytes.data() + row.offset, row.length), row.text)
            << row.offset << ' ' << row.length;
    }
    const char elsewhere[] = "1.2.3.4";
    EXPECT_EQ(versionResourceText(block, elsewhere, sizeof elsewhere), "");
    EXPECT_EQ(versionResourceText(block, nullptr, 4), "");
}
