#include "app/install_log_win.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <process.h>
#include <shlobj.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "platform/files_win.h"

namespace {

namespace fs = std::filesystem;

/// The log's folder, and another one beside it, which is current, with a file of the log's name.
class InstallLog : public testing::Test {
  protected:
    InstallLog() {
        char path[MAX_PATH] = "";
        SHGetFolderPathA(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT, path);
        fs::create_directories(folder = path + std::string("\\Halvick Test Equipment"));
        fs::create_directories(theirs = path + std::string("\\elsewhere"));
        fs::current_path(theirs);
        std::ofstream("InstallLog.txt") << "theirs";
    }
    ~InstallLog() override {
        fs::current_path(before);
        RemoveDirectoryA(folder.string().c_str());  // of a junction not what it leads to
        fs::remove_all(folder);
        fs::remove_all(theirs);
    }

    /// Has the system below Wine make a log, or remove it. There is none below Windows.
    void runBelow(const char* command, bool makes) const {
        if (_spawnl(_P_NOWAIT, "Z:\\bin\\sh", "sh", "-c", command, nullptr) != -1) {
            const DWORD start = GetTickCount();
            while (fs::exists(log()) != makes && GetTickCount() - start < 10000) {
                Sleep(10);
            }
        }
    }
    fs::path log() const { return folder / "InstallLog.txt"; }

    const fs::path before = fs::current_path();
    fs::path folder, theirs;
};

TEST_F(InstallLog, IsAppendedTo) {
    appendToInstallLog("a");
    const std::fstream open(log());  // somebody else's, who reads and writes
    appendToInstallLog("b");
    EXPECT_EQ(readFileContent(log().string()), "a\r\nb\r\n");
}

TEST_F(InstallLog, IsNotWrittenThroughALink) {
    const auto expectTheirs = [](bool isMade, const char* links) {
        if (!isMade) {
            std::cout << "not tried: " << links << ", which this disk or system lacks\n";
        }
        appendToInstallLog("a");
        EXPECT_EQ(readFileContent("InstallLog.txt"), "theirs") << links;
    };
    expectTheirs(CreateHardLinkA(log().string().c_str(), "InstallLog.txt", nullptr), "hard links");
    fs::remove(log());
    std::system(
        "mklink \"..\\Halvick Test Equipment\\InstallLog.txt\" "
        "..\\elsewhere\\InstallLog.txt >nul 2>nul");
    // Wine takes a link for what it leads to, and can neither make nor remove one.
    runBelow("\"ln -s ../elsewhere/InstallLog.txt '../Halvick Test Equipment/InstallLog.txt'\"",
             true);
    expectTheirs(fs::exists(log()), "symbolic links");
    runBelow("\"rm '../Halvick Test Equipment/InstallLog.txt'\"", false);
    fs::remove_all(folder);
    appendToInstallLog("a");
    EXPECT_FALSE(fs::exists(folder)) << "made for the log";
    std::system("mklink /J \"..\\Halvick Test Equipment\" . >nul 2>nul");
    expectTheirs(fs::exists(folder), "junctions");
}

}  // namespace
