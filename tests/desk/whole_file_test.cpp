#include "desk/whole_file.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;

TEST(WholeFile, IsReplacedAndNothingIsLeftBehind) {
    const fs::path folder = fs::temp_directory_path() / "whole_file_test";
    const std::string file = (folder / "file").string(),
                      directory = (folder / "directory").string();
    fs::remove_all(folder);
    fs::create_directories(directory);
    const std::string bytes("\r\n\x1A\0x", 5);
    std::string error;
    EXPECT_FALSE(readWholeFile(file) || readWholeFile(directory));
    EXPECT_TRUE(writeWholeFile(file, "a longer content", error));
    EXPECT_TRUE(writeWholeFile(file, bytes, error));
    EXPECT_EQ(readWholeFile(file), bytes);
    EXPECT_TRUE(isSameFile(file, (folder / "." / "file").string()));
    EXPECT_FALSE(isSameFile(file, file + "2"));
    EXPECT_FALSE(writeWholeFile(directory, "x", error));
    EXPECT_FALSE(writeWholeFile((folder / "none" / "file").string(), "x", error));
    EXPECT_FALSE(error.empty());
    // An iterator over the folder does not link with GCC 14 and its trapping sanitizer.
    EXPECT_EQ(fs::remove_all(folder), 3U) << "not just the two and their folder";
}
