// Libraries that somebody put beside the installer or on the media must not come into a run that
// has the rights of an administrator.
#include <gtest/gtest.h>

#include "tools/run_stage/stage_win.h"

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
    "wtsapi32.dll"};

TEST(PlantedLibraries, AreNotLoaded) {
    const std::string folders[] = {scratch, media, elsewhere};
    const auto loaded = [&](const std::string& program) {
        std::string marks;
        for (const std::string& folder : folders) {
            for (const std::string& name : names) {
                const std::string mark = folder + name + '.' + program;
                marks += readFile(mark).empty() ? "" : mark + ' ';
            }
        }
        return marks;
    };
    // The list view, help, the reading of a version, and the shell.
    Case run{"04: planted",
             {{"* | No, Skip", {"No, Skip"}}, {"* | Help", {"Help", "Install"}}, classicSetup},
             {installed("a", "Tavlink Classic Analyzer", "x"),
              indexed("Software\\Halvick Test Equipment\\Products\\1", "x"),
              program(scratch + "bin\\release\\qmx.exe")}};
    for (const std::string& name : names) {
        // ReactOS' own libraries import these, before any program's first instruction.
        if (stageSystem() == System::ReactOs && (name == "userenv.dll" || name == "uxtheme.dll")) {
            continue;
        }
        for (const std::string& folder : folders) {
            run.given.push_back(copied("planted_library.dll", folder + name));
        }
        // Wine takes its own libraries otherwise, wherever others of their names are found. Three
        // of them it loads itself: before the program's first instruction, or without regard to
        // the restriction.
        if (name != "msimg32.dll" && name != "uxtheme.dll" && name != "version.dll") {
            run.given.push_back(registeredBelow(
                HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe\\DllOverrides",
                '*' + name.substr(0, name.find(".dll")), "native,builtin"));
        }
    }
    play(run);
    EXPECT_EQ(loaded("Install.exe"), "");
    // A load would be noticed.
    FreeLibrary(LoadLibraryA((scratch + names[0]).c_str()));
    EXPECT_EQ(loaded("end_to_end_tests.exe"), scratch + names[0] + ".end_to_end_tests.exe ");
}
