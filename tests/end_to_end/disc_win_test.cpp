// A run from a disc, which nothing can be written to: the kit brings one for the drive of a
// machine.
#include <gtest/gtest.h>
#include <shlwapi.h>

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

TEST(Disc, HoldsAllThatARunNeeds) {
    const std::string disc = discRoot();
    if (disc.empty()) {
        GTEST_SKIP() << "the kit's disc is in no drive";
    }
    const std::string build = "1.2.3.4";
    play({{"04: from the disc",
           {chooseLive,
            setup("04", "Halvick Tavlink Classic Analyzer " + build, "LIVE", "x86", build, disc)},
           {installerAt(disc + "Install.exe")},
           "-dir " + disc}});
}

}  // namespace
