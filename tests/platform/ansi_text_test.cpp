#include "platform/ansi_text.h"

#include <gtest/gtest.h>

#include <algorithm>

TEST(AnsiText, ComparesAndFindsWithoutRegardToCase) {
    EXPECT_TRUE(equalIgnoringCase("-DIR", "-dir") && equalIgnoringCase("", ""));
    EXPECT_FALSE(equalIgnoringCase("-dir", "-dirx") || equalIgnoringCase("-dir", "-di"));
    EXPECT_EQ(findIgnoringCase("a SETUP.exe Setup.EXE", "setup.EXE"), 2u);
    EXPECT_EQ(findIgnoringCase("a SETUP.exe Setup.EXE", "setup.exe", 3), 12u);
    EXPECT_EQ(findIgnoringCase("setup.ex", "setup.exe"), std::string::npos);
    EXPECT_EQ(findIgnoringCase("abc", "", 3), 3u);
}

// Lead bytes as in code page 932, letters as in 1252.
TEST(AnsiText, SecondBytesAreNoCharactersOfTheirOwn) {
    CodePage page = asciiCodePage;
    std::fill_n(&page.lead[0x81], 0x1F, true);
    page.lower[0xC9] = 0xE9;
    useCodePage(page);
    EXPECT_FALSE(equalIgnoringCase("\x83\x41", "\x83\x61"));
    EXPECT_TRUE(equalIgnoringCase("\x83\x41Z\xC9", "\x83\x41z\xE9"));
    EXPECT_EQ(findIgnoringCase("\x83setup", "setup"), std::string::npos);
    EXPECT_EQ(findIgnoringCase("\x83\x73setup", "setup"), 2u);
    EXPECT_EQ(withTrailingBackslash("C:\\\x95\x5C"), "C:\\\x95\x5C\\");
    EXPECT_EQ(withTrailingBackslash("C:\\media\\"), "C:\\media\\");
    EXPECT_EQ(withTrailingBackslash("media"), "media\\");
    EXPECT_EQ(findLastBackslash("C:\\a\x95\x5C"), 2u);
    EXPECT_EQ(findLastBackslash("none"), std::string_view::npos);
    useCodePage(asciiCodePage);
}
