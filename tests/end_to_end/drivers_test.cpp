#include <gtest/gtest.h>

#include "tests/end_to_end/extraction.h"

namespace {

class Drivers : public testing::Test {
  protected:
    ~Drivers() override { removeFolder(testSystemFolder); }
};

TEST_F(Drivers, AreInstalledBeforeTheHandOver) {
    const std::string processor = on64BitWindows() ? "x64" : "x86";
    const std::string serial = "SerialTavlinkDrivers.fzx", corvane = "CorvaneTavlinkDrivers.fzx";
    const Step hardware{
        "* | Please select the type of product to install.\nOnly the live product "
        "works with capture hardware. | Live Product | File Viewer | Demonstration "
        "| Install | Cancel | Help",
        {"Install"}};
    const struct {
        std::string code, archive;
        Steps steps;
        std::string folder, type = "LIVE", bitness = "x86", release = "";
    } table[] = {
        {"1k", serial, {hardware}, "Halvick Tavlink Serial Analyzer "},
        {"1m",
         serial,
         {hardware},
         "Halvick Tavlink Industrial Analyzer ",
         "LIVE " + processor,
         processor},
        {"1w", corvane, {}, "Halvick ", "LIVE x86"},
        // On a release that the drivers do not run on.
        {"1w", "", {{"* | Yes | No", {"Yes"}}}, "Halvick ", "LIVE x86", "x86", "win2k"},
        // Further families end the run in silence.
        {"16", "", {}, ""},
        {"1r", "", {}, ""},
        {"1u", "", {}, ""},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.code + ' ' + row.release);
        Stage stage(row.code, "media with blanks");
        if (row.release == "win2k") {
            stage.setRegistry(HKEY_CURRENT_USER, "Software\\Wine\\AppDefaults\\Install.exe",
                              "Version", row.release);
        }
        layOutExtraction(stage);
        stage.run(
            row.steps,
            (row.archive.empty() ? "" : extraction(stage, row.archive) + Stage::ran(unpacked)) +
                (row.folder.empty()
                     ? ""
                     : stage.setup(row.code, row.folder + defaultBuild, row.type, row.bitness)));
    }
}

TEST_F(Drivers, AreInstalledAsFarAsTheReportTells) {
    const struct {
        const char* what;
        std::string report;
        bool installs = false;
    } table[] = {
        {"empty", ""},
        {"no name", "\"sub folder\\setup.exe\""},
        {"the other bitness", "\"sub folder\\dpinst_" + otherBits + ".exe\""},
        {"capitals", "\"sub folder\\DPINST_" + bits + ".EXE\""},
        {"no quote in front", "sub folder\\" + driverInstaller + '"'},
        {"name first", driverInstaller + '"'},
        {"a file that is not there", "\"other folder\\" + driverInstaller + '"'},
        {"zero bytes in front", std::string(3, '\0') + "\"sub folder\\" + driverInstaller + '"',
         true},
        {"10 MB", std::string(10'000'000, '"') + "sub folder\\" + driverInstaller, true},
        {"out of the folder", "\"..\\Drivers\\sub folder\\" + driverInstaller + '"', true},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.what);
        const Stage stage("1w", "media with blanks");
        layOutExtraction(stage, row.report);
        stage.run({}, extraction(stage, "CorvaneTavlinkDrivers.fzx") +
                          (row.installs ? Stage::ran(unpacked) : "") +
                          stage.setup("1w", "Halvick 16.4.10002.0", "LIVE x86"));
    }
}

}  // namespace
