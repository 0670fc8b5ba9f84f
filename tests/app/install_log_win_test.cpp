#include "app/install_log_win.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <shlobj.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

namespace fs = std::filesystem;

std::string read(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(InstallLog, IsAppendedToWhereItIsOneOfOurOwn) {
    char documents[MAX_PATH] = "";
    SHGetFolderPathA(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT, documents);
    const fs::path folder = fs::path(documents) / "Halvick Test Equipment",
                   elsewhere = fs::temp_directory_path() / "installer test",
                   log = folder / "InstallLog.txt", theirs = elsewhere / "InstallLog.txt";
    fs::create_directories(folder);
    fs::create_directories(elsewhere);
    appendToInstallLog("a");
    appendToInstallLog("b");
    EXPECT_EQ(read(log), "a\r\nb\r\n");

    std::ofstream(theirs) << "theirs";
    fs::remove(log);
    EXPECT_TRUE(CreateHardLinkA(log.string().c_str(), theirs.string().c_str(), nullptr));
    appendToInstallLog("a");
    EXPECT_EQ(read(theirs), "theirs") << "written through a hard link";

    fs::remove_all(folder);
    // Not every platform has junctions.
    const std::string paths = '"' + folder.string() + "\" \"" + elsewhere.string() + '"';
    std::system(("mklink /J " + paths + " >nul 2>nul").c_str());
    appendToInstallLog("a");
    EXPECT_EQ(read(theirs), "theirs") << "written into another folder";
    RemoveDirectoryA(folder.string().c_str());  // a junction, not what it leads to
    fs::remove_all(elsewhere);
}

}  // namespace
