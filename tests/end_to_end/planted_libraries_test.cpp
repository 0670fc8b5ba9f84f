// Libraries that somebody put beside the installer or on the media must not come into a run that
// has the rights of an administrator.
#include <gtest/gtest.h>

#include "tests/end_to_end/hand_over.h"
#include "tests/end_to_end/registry_fixture.h"

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
    const Media media;
    RegistryFixture registry;
    const std::string launcher = media.scratch + "launcher\\";
    const std::string program = launcher + "Install.exe";
    makeFolder(launcher);
    MoveFileA(media.installer("04").c_str(), program.c_str());
    for (const std::string& folder : {launcher, media.folder}) {
        for (const std::string& name : names) {
            layOutFile("planted_library.dll", folder + name);
        }
    }
    // Wine takes its own libraries otherwise, wherever others of their names are found. Three of
    // them it loads itself: before the program's first instruction, or without regard to the
    // restriction.
    for (const std::string& name : names) {
        if (name != "msimg32.dll" && name != "uxtheme.dll" && name != "version.dll") {
            registry.set(HKEY_CURRENT_USER,
                         "Software\\Wine\\AppDefaults\\Install.exe\\DllOverrides",
                         '*' + name.substr(0, name.find(".dll")), "native,builtin");
        }
    }
    // That a load would be noticed.
    FreeLibrary(LoadLibraryA((launcher + names[0]).c_str()));
    EXPECT_TRUE(fileExists(launcher + names[0] + ".end_to_end_tests.exe"));

    // The list view, help, the reading of a version, and the shell.
    registry.addInstalled("a", "Tavlink Classic Analyzer", "12.0.0.0", "x", "x");
    const char* const recorded = "Software\\Halvick Test Equipment\\Products\\1";
    for (const char* name : {"Path", "Product Id", "Product Name", "Seinda", "Temp Reference"}) {
        registry.set(HKEY_LOCAL_MACHINE, recorded, name, "x");
    }
    const std::string analyser = media.scratch + "old\\Executables\\Core\\qmx.exe";
    registry.set(HKEY_LOCAL_MACHINE, recorded, "Installation Path", media.scratch + "old");
    layOutStandIn(analyser);

    InstallerRun run(program, "-dir \"" + media.folder + "\\\"");
    const auto prompt = run.nextDialog();
    ASSERT_TRUE(prompt);
    prompt->click("No, Skip");
    const auto dialog = run.nextDialog();
    ASSERT_TRUE(dialog);
    dialog->click("Help");
    dialog->click("Install");
    expectStarted(run, media,
                  {setup(media, {"04", "Halvick Tavlink Classic Analyzer 16.4.10002.0"})});

    for (const std::string& folder : {launcher, media.folder}) {
        for (const std::string& name : names) {
            EXPECT_FALSE(fileExists(folder + name + ".Install.exe")) << folder << name;
        }
    }
}

}  // namespace
