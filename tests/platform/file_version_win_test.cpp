// On a stand-in with the version resource of recorder.rc.
#include "platform/file_version_win.h"

#include <filesystem>
#include <fstream>

#include "platform/files_win.h"
#include "tests/rows.h"

namespace {

std::string wide(const std::string& text) {
    std::string bytes;
    for (const char character : text) {
        bytes += {character, '\0'};
    }
    return bytes;
}

TEST(FileVersion, IsThatOfTheUsEnglishUnicodeTable) {
    namespace fs = std::filesystem;
    const fs::path folder = fs::path(_pgmptr).parent_path().parent_path() / "dialog_driver";
    const std::string program = readFileContent((folder / "recorder.exe").string()).value_or("");
    const fs::path path = fs::temp_directory_path() / "with version.exe";
    std::string text = "left over";
    EXPECT_FALSE(fileVersionText(path.string(), text));
    EXPECT_EQ(text, "");
    expectRows<std::tuple<std::string, std::string>, std::string>(
        {{{"040904b0", "040904B0"}, "Version Build 12.4.1"},
         {{"040904b0", "040704b0"}, ""},
         {{"040904b0", "040904e4"}, ""},
         {{"FileVersion", "FileVersiox"}, ""}},
        [&](const std::string& from, const std::string& to) {
            std::string content = program;
            content.replace(content.find(wide(from)), 2 * from.size(), wide(to));
            std::ofstream(path, std::ios::binary) << content;
            EXPECT_TRUE(fileVersionText(path.string(), text));
            return text;
        });
    std::ofstream(path, std::ios::binary) << "MZ";
    EXPECT_FALSE(fileVersionText(path.string(), text)) << "no version resource";
    fs::remove(path);
}

}  // namespace
