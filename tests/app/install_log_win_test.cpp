#include "app/install_log_win.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <process.h>
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

/// The log's folder, and another one with a file of the log's name.
class InstallLog : public testing::Test {
  protected:
    InstallLog() {
        char path[MAX_PATH] = "";
        SHGetFolderPathA(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT, path);
        documents = path;
        fs::create_directories(folder = documents / "Halvick Test Equipment");
        fs::create_directories(documents / "elsewhere");
        log = folder / "InstallLog.txt";
        std::ofstream(theirs = documents / "elsewhere" / "InstallLog.txt") << "theirs";
    }
    ~InstallLog() override {
        fs::current_path(before);
        RemoveDirectoryA(folder.string().c_str());  // of a junction not what it leads to
        fs::remove_all(folder);
        fs::remove_all(documents / "elsewhere");
    }

    /// Has the system below Wine make a log, or remove it. There is none below Windows.
    void runBelow(const char* command, bool makes) {
        if (_spawnl(_P_NOWAIT, "Z:\\bin\\sh", "sh", "-c", command, nullptr) != -1) {
            const DWORD start = GetTickCount();
            while (fs::exists(log) != makes && GetTickCount() - start < 10000) {
                Sleep(10);
            }
        }
    }

    const fs::path before = fs::current_path();
    fs::path documents, folder, log, theirs;
};

TEST_F(InstallLog, IsAppendedTo) {
    appendToInstallLog("a");
    const std::fstream open(log);  // somebody else's, who reads and writes
    appendToInstallLog("b");
    EXPECT_EQ(read(log), "a\r\nb\r\n");
}

TEST_F(InstallLog, IsNotWrittenThroughAHardLink) {
    char fileSystem[MAX_PATH] = "";
    GetVolumeInformationA(documents.root_path().string().c_str(), nullptr, 0, nullptr, nullptr,
                          nullptr, fileSystem, sizeof fileSystem);
    if (std::string(fileSystem).starts_with("FAT")) {
        GTEST_SKIP() << fileSystem << " has no hard links";
    }
    EXPECT_TRUE(CreateHardLinkA(log.string().c_str(), theirs.string().c_str(), nullptr));
    appendToInstallLog("a");
    EXPECT_EQ(read(theirs), "theirs");
}

TEST_F(InstallLog, IsNotWrittenThroughAJunction) {
    fs::remove(folder);
    fs::remove(theirs);
    fs::current_path(documents);
    std::system("mklink /J \"Halvick Test Equipment\" elsewhere >nul 2>nul");
    if (!fs::exists(folder)) {
        GTEST_SKIP() << "no junctions, as under Wine and on FAT";
    }
    appendToInstallLog("a");
    EXPECT_FALSE(fs::exists(theirs));
}

TEST_F(InstallLog, IsNotWrittenThroughASymbolicLink) {
    fs::current_path(folder);
    std::system("mklink InstallLog.txt ..\\elsewhere\\InstallLog.txt >nul 2>nul");
    // Wine takes a link for what it leads to, and can neither make nor remove one.
    runBelow("\"ln -s ../elsewhere/InstallLog.txt InstallLog.txt\"", true);
    if (!fs::exists(log)) {
        GTEST_SKIP() << "no symbolic links, as before Vista";
    }
    appendToInstallLog("a");
    EXPECT_EQ(read(theirs), "theirs");
    runBelow("\"rm InstallLog.txt\"", false);
}

}  // namespace
