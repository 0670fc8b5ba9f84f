#include <gtest/gtest.h>

#include "tests/end_to_end/stage.h"

namespace {

const Step serial = extracted("SerialTavlinkDrivers.fzx");
const Step corvane = extracted("CorvaneTavlinkDrivers.fzx");
const Step multiprotocolSetup = setup("1w", "Halvick 16.4.10002.0", "LIVE x86");

TEST(Drivers, AreInstalledInTheirPlaceOfTheRun) {
    const std::string uninstaller = scratch + "old.exe";
    play({
        {"1k: before the choice, older versions left alone",
         {serial, ran(unpacked), chooseLive,
          setup("1k", "Halvick Tavlink Serial Analyzer 16.4.10002.0")},
         {extractionTool(), installed("a", "Tavlink Serial Analyzer", "x")}},
        {"1k: before a cancelled choice",
         {serial, ran(unpacked), choose("Live Product", "Cancel")},
         {extractionTool()}},
        {"1k: without an extraction tool",
         {shellMessage, choose("Demonstration"),
          setup("0g", "Halvick Tavlink Serial Demo 16.4.10002.0", "DEMO")}},
        {"1w: in place of the choice, after the removal",
         {{"* | No, Skip", {"Yes, Uninstall Selected Version(s)"}},
          ran(uninstaller),
          corvane,
          ran(unpacked),
          multiprotocolSetup},
         {extractionTool(), program(uninstaller),
          installed("a", "Halvick Anything 12", uninstaller)}},
        {"1w: not on this release, and without a choice all the same",
         {{"* | Yes | No", {"Yes"}}, multiprotocolSetup},
         {extractionTool(), release("win2k")}},
        // Further families end the run in silence.
        {"16: Bluetooth", {}, {extractionTool()}},
        {"1r: low energy", {}, {extractionTool()}},
        {"1u: Corvane", {}, {extractionTool()}},
    });
}

TEST(Drivers, AreInstalledAsFarAsTheReportTells) {
    const std::string other = on64BitWindows() ? "32" : "64", sub = "\"sub folder\\";
    const struct {
        std::string what, report;
        bool installs = false;
    } table[] = {
        {"nothing", ""},
        {"the other bitness", sub + "dpinst_" + other + ".exe\""},
        {"a file that is not there", "\"other folder\\" + driverInstaller + '"'},
        {"1 MB with zero bytes", std::string(1'000'000, '\0') + sub + driverInstaller, true},
        {"out of the folder", "\"..\\Drivers\\sub folder\\" + driverInstaller, true},
    };
    for (const auto& row : table) {
        Case run{"1w: the report holds " + row.what, {corvane}, {extractionTool(row.report)}};
        if (row.installs) {
            run.steps.push_back(ran(unpacked));
        }
        run.steps.push_back(multiprotocolSetup);
        play(run);
    }
}

}  // namespace
