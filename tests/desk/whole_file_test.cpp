#include "desk/whole_file.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

TEST(WholeFile, IsReplacedAndNothingIsLeftBehind) {
    const fs::path folder = fs::temp_directory_path() / "whole_file_test";
    const std::string file = (folder / "file").string(), link = (folder / "link").string(),
                      directory = (folder / "directory").string();
    fs::remove_all(folder);
    fs::create_directories(directory);
    fs::create_symlink("file", link);
    const std::string bytes("\r\n\x1A\0x", 5);
    EXPECT_FALSE(readWholeFile(file) || readWholeFile(directory));
    EXPECT_THROW(writeOutput(link, "leads nowhere"), Refusal);
    writeOutput(file, "a longer content");
    writeOutput(link, bytes);
    EXPECT_EQ(readInput(file), bytes);
    EXPECT_THROW(writeOutput(directory, "x"), Refusal);
    EXPECT_THROW(writeOutput((folder / "file" / "below").string(), "x"), Refusal);
    // An iterator over the folder does not link with GCC 14 and its trapping sanitizer.
    EXPECT_EQ(fs::remove_all(folder), 4U) << "not just the three and their folder";
}
