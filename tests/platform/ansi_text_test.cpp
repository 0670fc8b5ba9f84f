#include "platform/ansi_text.h"

#include <gtest/gtest.h>

namespace {

/// Lead bytes as in code page 932, letters as in 1252.
class TwoByteText : public testing::Test {
  protected:
    TwoByteText() {
        CodePage page = asciiCodePage();
        for (int byte = 0x81; byte <= 0x9F; ++byte) {
            page.lead[byte] = true;
        }
        page.lower[0xC9] = 0xE9;
        useCodePage(page);
    }
    ~TwoByteText() override { useCodePage(asciiCodePage()); }
};

TEST(AnsiText, ComparesWithoutRegardToCase) {
    EXPECT_TRUE(equalIgnoringCase("-DIR", "-dir"));
    EXPECT_FALSE(equalIgnoringCase("-dir", "-dirx"));
    EXPECT_FALSE(equalIgnoringCase("-dir", "-di"));
    EXPECT_TRUE(equalIgnoringCase("", ""));
}

TEST(AnsiText, FindsWithoutRegardToCase) {
    EXPECT_EQ(findIgnoringCase("a SETUP.exe Setup.EXE", "setup.EXE"), 2u);
    EXPECT_EQ(findIgnoringCase("a SETUP.exe Setup.EXE", "setup.exe", 3), 12u);
    EXPECT_EQ(findIgnoringCase("setup.ex", "setup.exe"), std::string::npos);
    EXPECT_EQ(findIgnoringCase("abc", "", 3), 3u);
}

TEST_F(TwoByteText, SecondBytesAreNotLettersOfTheirOwn) {
    EXPECT_FALSE(equalIgnoringCase("\x83\x41", "\x83\x61"));
    EXPECT_TRUE(equalIgnoringCase("\x83\x41Z\xC9", "\x83\x41z\xE9"));
    EXPECT_EQ(findIgnoringCase("\x83setup", "setup"), std::string::npos);
    EXPECT_EQ(findIgnoringCase("\x83\x73setup", "setup"), 2u);
}

TEST_F(TwoByteText, BackslashIsTheLastCharacterNotTheLastByte) {
    EXPECT_EQ(withTrailingBackslash("C:\\\x95\x5C"), "C:\\\x95\x5C\\");
    EXPECT_EQ(withTrailingBackslash("C:\\media\\"), "C:\\media\\");
    EXPECT_EQ(withTrailingBackslash("media"), "media\\");
    EXPECT_EQ(findLastBackslash("C:\\a\x95\x5C"), 2u);
    EXPECT_EQ(findLastBackslash("none"), std::string_view::npos);
}

}  // namespace
