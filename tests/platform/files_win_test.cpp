#include "platform/files_win.h"

#include <filesystem>
#include <fstream>

#include "tests/rows.h"

namespace fs = std::filesystem;

TEST(Files, AreReadUpToTheLimitWhoeverHasThemOpen) {
    const std::string path = (fs::temp_directory_path() / "large file").string();
    std::ofstream(path) << "content";
    // Free to do anything with it.
    const HANDLE open = CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    EXPECT_EQ(readFileContent(path), "content");
    CloseHandle(open);
    fs::resize_file(path, maximumFileSize);
    EXPECT_EQ(readFileContent(path).value_or("").size(), maximumFileSize);
    fs::resize_file(path, maximumFileSize + 1);
    EXPECT_EQ(readFileContent(path), std::nullopt);
    fs::remove(path);
    EXPECT_EQ(readFileContent(path), std::nullopt);
    EXPECT_EQ(readFileContent(fs::temp_directory_path().string()), std::nullopt);
}

// From media that cannot be written to, over an uninstaller that came from there as well.
TEST(Files, AreNotReadOnlyOnceTheyAreCopied) {
    const std::string source = (fs::temp_directory_path() / "source").string(),
                      target = (fs::temp_directory_path() / "target").string();
    for (const auto& [path, content] : {std::pair(source, "new"), {target, "old"}}) {
        std::ofstream(path) << content;
        EXPECT_TRUE(SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_READONLY));
    }
    EXPECT_EQ(copyOverFile(source, target), DWORD{ERROR_SUCCESS});
    EXPECT_EQ(readFileContent(target), "new");
    EXPECT_NE(GetFileAttributesA(source.c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
    EXPECT_TRUE(DeleteFileA(target.c_str()));
    SetFileAttributesA(source.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(DeleteFileA(source.c_str()));
    EXPECT_EQ(copyOverFile(source, target), DWORD{ERROR_FILE_NOT_FOUND});
}

// On a stand-in with the version resource of recorder.rc.
TEST(FileVersion, IsThatOfTheUsEnglishUnicodeTable) {
    const fs::path folder = fs::path(_pgmptr).parent_path().parent_path() / "dialog_driver";
    const std::string program = readFileContent((folder / "recorder.exe").string()).value_or("");
    const fs::path path = fs::temp_directory_path() / "with version.exe";
    const auto wide = [](const std::string& text) {
        const std::wstring units(text.begin(), text.end());
        return std::string(reinterpret_cast<const char*>(units.data()), 2 * units.size());
    };
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
