#include "tools/whole_file.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

class WholeFile : public testing::Test {
  protected:
    void SetUp() override { std::filesystem::create_directories(folder); }
    void TearDown() override { std::filesystem::remove_all(folder); }

    std::size_t entries() const {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(folder), {}));
    }

    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "whole_file_test";
    const std::string file = (folder / "file").string();
    std::string error;
};

TEST_F(WholeFile, IsReplaced) {
    const std::string bytes("\r\n\x1A\0x", 5);
    EXPECT_TRUE(writeWholeFile(file, "a longer content", error));
    EXPECT_TRUE(writeWholeFile(file, bytes, error));
    EXPECT_EQ(readWholeFile(file), bytes);
    EXPECT_EQ(entries(), 1u);
    EXPECT_TRUE(isSameFile(file, (folder / "." / "file").string()));
    EXPECT_FALSE(isSameFile(file, file + "2"));
}

TEST_F(WholeFile, LeavesNothingBehindWhenItFails) {
    const std::string directory = (folder / "directory").string();
    std::filesystem::create_directory(directory);
    EXPECT_FALSE(writeWholeFile(directory, "x", error));
    EXPECT_FALSE(writeWholeFile((folder / "none" / "file").string(), "x", error));
    EXPECT_FALSE(error.empty());
    EXPECT_EQ(entries(), 1u);
    EXPECT_FALSE(readWholeFile(directory));
    EXPECT_FALSE(readWholeFile(file));
}

}  // namespace
