#include "platform/ansi_text.h"

#include <algorithm>

#include "tests/rows.h"

TEST(AnsiText, ComparesAndFindsWithoutRegardToCase) {
    EXPECT_TRUE(equalIgnoringCase("-DIR", "-dir") && equalIgnoringCase("", ""));
    EXPECT_FALSE(equalIgnoringCase("-dir", "-dirx") || equalIgnoringCase("-dir", "-di"));
    EXPECT_EQ(findIgnoringCase("a SETUP.exe Setup.EXE", "setup.EXE"), 2u);
    EXPECT_EQ(findIgnoringCase("setup.ex", "setup.exe"), std::string::npos);
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
    expectRows<std::string, std::string>(
        {{"C:\\\x95\x5C", "C:\\\x95\x5C\\"}, {"C:\\media\\", "C:\\media\\"}, {"media", "media\\"}},
        withTrailingBackslash);
    EXPECT_EQ(findLastBackslash("C:\\a\x95\x5C"), 2u);
    EXPECT_EQ(findLastBackslash("none"), std::string_view::npos);
    useCodePage(asciiCodePage);
}

TEST(AnsiText, IsReplacedWithoutASearchOfWhatWasInserted) {
    expectRows<std::tuple<std::string, std::string, std::string, bool>, std::string>(
        {{{"<b> X <B>", "<B>", "1", true}, "1 X 1"},
         {{"<b> X <B>", "<B>", "1", false}, "<b> X 1"},
         {{"aXa", "x", "xx", true}, "axxa"},
         {{"aaaa", "aa", "a", false}, "aa"},
         {{"AbC", "", "z", true}, "AbC"},
         {{"#P##p#", "#p#", "", true}, ""}},
        replaceAll);
}

TEST(AnsiText, TakesACodePageAsTheSystemDescribesIt) {
    const auto lower = [](unsigned char byte) { return static_cast<unsigned char>(byte | 0x20); };
    const unsigned char ranges[] = {0x81, 0x9F, 0xE0, 0xFF, 0, 0}, none[] = {0, 0};
    const CodePage doubleByte = describedCodePage(2, ranges, lower);
    for (const int byte : {0x80, 0x81, 0x9F, 0xA0, 0xDF, 0xE0, 0xFF}) {
        const bool lead = byte >= 0xE0 || (byte >= 0x81 && byte <= 0x9F);
        EXPECT_EQ(doubleByte.lead[byte], lead) << byte;
        EXPECT_EQ(doubleByte.lower[byte], lead ? byte : byte | 0x20) << byte;
    }
    EXPECT_EQ(describedCodePage(1, none, lower).lower[0xC9], 0xE9);
    // UTF-8 and the like.
    const CodePage manyBytes = describedCodePage(3, none, lower);
    EXPECT_EQ(manyBytes.lower, asciiCodePage.lower);
    EXPECT_EQ(manyBytes.lead, asciiCodePage.lead);
}
