#include "platform/files_win.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

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
