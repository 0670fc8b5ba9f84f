#include "platform/files.h"

#include <vector>

#include "tests/rows.h"

TEST(Files, DirectoryOfAProgramEndsInTheLastSeparator) {
    const std::string longest = "\\" + std::string(254, 'd') + "\\";
    expectRows<std::string, std::string>({{"C:\\media\\x\\installer.exe", "C:\\media\\x\\"},
                                          {"C:\\a/b.exe", "C:\\a/"},
                                          {"C:installer.exe", "C:"},
                                          {"installer.exe", ""},
                                          {"C:", "C:"},
                                          {"C:" + longest + "i.exe", "C:" + longest},
                                          {"C:\\" + longest + "i.exe", ""}},
                                         directoryOfProgram);
}

TEST(FileVersion, TextStaysInsideTheBlock) {
    const std::string content("12\00034567", 8);
    const std::vector<char> bytes(content.begin(), content.end());  // exact, for the sanitizer
    const std::string_view block(bytes.data(), bytes.size());
    expectRows<std::tuple<std::ptrdiff_t, std::size_t>, std::string>(
        {// The length is not looked at, but for 0.
         {{0, 1}, "Version 12"},
         {{2, 1}, "Version "},
         {{3, 0xFFFFFFFF}, "Version 34567"},
         {{0, 0}, ""},
         {{8, 4}, ""}},
        [&](std::ptrdiff_t offset, std::size_t length) {
            return versionResourceText(block, bytes.data() + offset, length);
        });
    const char elsewhere[] = "1.2.3.4";
    EXPECT_EQ(versionResourceText(block, elsewhere, sizeof elsewhere), "");
    EXPECT_EQ(versionResourceText(block, nullptr, 4), "");
}
