// Libraries that somebody put beside the installer or on the media must not come into a run that
// has the rights of an administrator.
#include <gtest/gtest.h>

#include <filesystem>

#include "tests/end_to_end/stage.h"

namespace {

/// What the program, or the platform on its behalf, may ask for by a bare name. Without what every
/// Windows holds ready for all programs (KnownDLLs in the registry): that is never searched for.
/// "null.dll" is Wine's display driver without a display.
const std::string names[] = {
    "apphelp.dll",  "bcrypt.dll",      "comctl32.dll",        "clbcatq.dll",  "cryptbase.dll",
    "cryptsp.dll",  "dwmapi.dll",      "edputil.dll",         "hhctrl.ocx",   "iertutil.dll",
    "imagehlp.dll", "linkinfo.dll",    "mlang.dll",           "mpr.dll",      "msimg32.dll",
    "ntmarta.dll",  "null.dll",        "ntshrui.dll",         "oleacc.dll",   "profapi.dll",
    "propsys.dll",  "rsaenh.dll",      "secur32.dll",         "setupapi.dll", "shfolder.dll",
    "sspicli.dll",  "textshaping.dll", "urlmon.dll",          "userenv.dll",  "usp10.dll",
    "uxtheme.dll",  "version.dll",     "windows.storage.dll", "wininet.dll",  "winmm.dll",
    "wtsapi32.dll",
};

TEST(PlantedLibraries, AreNotLoaded) {
    Stage stage("04");
    const std::string folders[] = {stage.scratch, stage.folder};
    for (const std::string& name : names) {
        for (const std::string& folder : folders) {
            layOutFile("planted_library.dll", folder + name);
        }
        // Wine takes its own libraries otherwise, wherever others of their names are found. Three
        // of them it loads itself: before the program's first instruction, or without regard to
        // the restriction.
        if (name != "msimg32.dll" && name != "uxtheme.dll" && name != "version.dll") {
            stage.setRegistry(HKEY_CURRENT_USER,
                              "Software\\Wine\\AppDefaults\\Install.exe\\DllOverrides",
                              '*' + name.substr(0, name.find(".dll")), "native,builtin");
        }
    }
    // That a load would be noticed.
    FreeLibrary(LoadLibraryA((stage.scratch + names[0]).c_str()));
    EXPECT_TRUE(std::filesystem::exists(stage.scratch + names[0] + ".end_to_end_tests.exe"));

    // The list view, help, the reading of a version, and the shell.
    stage.addInstalled("a", "Tavlink Classic Analyzer", "12.0.0.0", "x", "x");
    stage.addToIndex("Software\\Halvick Test Equipment\\Products\\1", "x");
    stage.setRegistry(HKEY_LOCAL_MACHINE, "Software\\Halvick Test Equipment\\Products\\1", "Path",
                      stage.scratch + "indexed");
    stage.layOut(stage.scratch + "indexed\\bin\\release\\qmx.exe");
    stage.run({{"* | No, Skip", {"No, Skip"}}, {"* | Help", {"Help", "Install"}}},
              stage.setup("04", "Halvick Tavlink Classic Analyzer 16.4.10002.0"));
    for (const std::string& folder : folders) {
        for (const std::string& name : names) {
            EXPECT_FALSE(std::filesystem::exists(folder + name + ".Install.exe")) << folder << name;
        }
    }
}

}  // namespace
