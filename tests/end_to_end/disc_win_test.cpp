// A run from a disc, which nothing can be written to: the kit brings one.
#include <gtest/gtest.h>
#include <shlwapi.h>
#include <winioctl.h>

#include "tools/run_stage/stage_win.h"

namespace {

/// The root of the drive that the disc is in; empty where there is none.
std::string discRoot() {
    for (std::string root = "C:\\"; root[0] <= 'Z'; ++root[0]) {
        if (GetDriveTypeA(root.c_str()) == DRIVE_CDROM &&
            PathFileExistsA((root + "Install.exe").c_str())) {
            return root;
        }
    }
    return "";
}

/// Has the drive do what the code of winioctl.h says.
void controlDrive(const std::string& root, DWORD code) {
    const HANDLE drive =
        CreateFileA(("\\\\.\\" + root.substr(0, 2)).c_str(), GENERIC_READ,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    DWORD size = 0;
    EXPECT_TRUE(DeviceIoControl(drive, code, nullptr, 0, nullptr, 0, &size, nullptr))
        << "error " << GetLastError();
    CloseHandle(drive);
}

class Disc : public testing::Test {
  protected:
    void SetUp() override {
        if (root.empty()) {
            GTEST_SKIP() << "the kit's disc is in no drive";
        }
    }

    const std::string root = discRoot();
};

TEST_F(Disc, HoldsAllThatARunNeeds) {
    const std::string build = "1.2.3.4";
    play({{"04: from the disc",
           {chooseLive,
            setup("04", "Halvick Tavlink Classic Analyzer " + build, "LIVE", "x86", build, root)},
           {installerAt(root + "Install.exe")},
           {"-dir", root}}});
}

TEST_F(Disc, IsMissedWhereItWasTakenOut) {
    // Programs take it over from who starts them. Without it the system asks for the disc first.
    const UINT errorMode = SetErrorMode(SEM_FAILCRITICALERRORS);
    Step choice = chooseLive;
    choice.meanwhile = [&] { controlDrive(root, IOCTL_STORAGE_EJECT_MEDIA); };
    play({{"04: the disc is taken out",
           {choice, box("Failed to locate program installation utility: \"" + root + "Setup.Exe\"",
                        "error")},
           {installerAt(root + "Install.exe")},
           {"-dir", root}}});
    SetErrorMode(errorMode);
    controlDrive(root, IOCTL_STORAGE_LOAD_MEDIA);
}

}  // namespace
