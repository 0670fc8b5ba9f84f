#include "app/install_log_win.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <shlobj.h>
#include <winioctl.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

/// Makes a folder that leads to another; false where the platform has none.
bool makeJunction(const std::string& path, const std::wstring& target) {
    struct {
        DWORD tag = IO_REPARSE_TAG_MOUNT_POINT;
        WORD size = 0, reserved = 0;
        WORD substituteOffset = 0, substituteSize = 0, printOffset = 0, printSize = 0;
        wchar_t names[400] = {};
    } data;
    const std::wstring name = L"\\??\\" + target;
    name.copy(data.names, name.size());
    data.substituteSize = static_cast<WORD>(name.size() * sizeof(wchar_t));
    data.printOffset = static_cast<WORD>(data.substituteSize + sizeof(wchar_t));
    data.size = static_cast<WORD>(data.printOffset + sizeof(wchar_t) + 8);
    CreateDirectoryA(path.c_str(), nullptr);
    const HANDLE folder =
        CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                    FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    DWORD ignored = 0;
    const BOOL made = DeviceIoControl(folder, FSCTL_SET_REPARSE_POINT, &data, data.size + 8u,
                                      nullptr, 0, &ignored, nullptr);
    CloseHandle(folder);
    return made != FALSE;
}

class InstallLog : public testing::Test {
  protected:
    InstallLog() {
        std::filesystem::create_directories(elsewhere);
        std::filesystem::create_directories(folder);
        write(theirs);
    }
    ~InstallLog() override {
        RemoveDirectoryA(folder.string().c_str());  // a junction, not what it leads to
        std::filesystem::remove_all(folder);
        std::filesystem::remove_all(elsewhere);
    }

    static void write(const std::filesystem::path& path) {
        std::ofstream(path, std::ios::binary) << "theirs";
    }
    static std::string read(const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    static std::filesystem::path documents() {
        char path[MAX_PATH] = "";
        SHGetFolderPathA(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT, path);
        return path;
    }

    const std::filesystem::path folder = documents() / "Halvick Test Equipment";
    const std::filesystem::path log = folder / "InstallLog.txt";
    const std::filesystem::path elsewhere =
        std::filesystem::temp_directory_path() / "installer test";
    const std::filesystem::path theirs = elsewhere / "InstallLog.txt";
};

TEST_F(InstallLog, IsAppendedTo) {
    appendToInstallLog("a");
    appendToInstallLog("b");
    EXPECT_EQ(read(log), "a\r\nb\r\n");
}

TEST_F(InstallLog, IsNotWrittenThroughAHardLink) {
    ASSERT_TRUE(CreateHardLinkA(log.string().c_str(), theirs.string().c_str(), nullptr));
    appendToInstallLog("a");
    EXPECT_EQ(read(theirs), "theirs");
}

TEST_F(InstallLog, IsNotWrittenIntoAnotherFolder) {
    if (!makeJunction(folder.string(), theirs.parent_path().wstring())) {
        GTEST_SKIP() << "no junctions here";
    }
    appendToInstallLog("a");
    EXPECT_EQ(read(theirs), "theirs");
}

}  // namespace
