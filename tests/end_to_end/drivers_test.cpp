#include <gtest/gtest.h>

#include "tests/end_to_end/stage.h"

namespace {

const Step serial = extracted("SerialTavlinkDrivers.fzx");
const Step corvane = extracted("CorvaneTavlinkDrivers.fzx");
const Step serialSetup = setup("1k", "Halvick Tavlink Serial Analyzer 16.4.10002.0");
const Step multiprotocolSetup = setup("1w", "Halvick 16.4.10002.0", "LIVE x86");

TEST(Drivers, AreInstalledInTheirPlaceOfTheRun) {
    const Given older = installed("a", "Halvick Anything 12", scratch + "old.exe");
    const Given uninstaller = program(scratch + "old.exe", "100");
    play({
        {"hardware: before the choice, older versions left alone",
         "1k",
         {extractionTool(), installed("a", "Tavlink Serial Analyzer", "x")},
         {serial, ran(unpacked), chooseLive, serialSetup}},
        {"hardware: cancelled",
         "1k",
         {extractionTool()},
         {serial, ran(unpacked), choose("Live Product", "Cancel")}},
        {"hardware: no extraction tool",
         "1k",
         {},
         {shellMessage, choose("Demonstration"),
          setup("0g", "Halvick Tavlink Serial Demo 16.4.10002.0", "DEMO")}},
        {"in place of the choice, after the removal",
         "1w",
         {extractionTool(), older, uninstaller},
         {{"* | No, Skip", {"Yes, Uninstall Selected Version(s)"}},
          ran(scratch + "old.exe"),
          corvane,
          ran(unpacked),
          multiprotocolSetup}},
        {"not on this release, and without a choice all the same",
         "1w",
         {extractionTool(), release("win2k")},
         {{"* | Yes | No", {"Yes"}}, multiprotocolSetup}},
        // Further families end the run in silence.
        {"Bluetooth", "16", {extractionTool()}, {}},
        {"low energy", "1r", {extractionTool()}, {}},
        {"Corvane", "1u", {extractionTool()}, {}},
    });
}

TEST(Drivers, AreInstalledAsFarAsTheReportTells) {
    const std::string other = on64BitWindows() ? "32" : "64";
    const struct {
        const char* what;
        std::string report;
        bool installs = false;
    } table[] = {
        {"empty", ""},
        {"the other bitness", "\"sub folder\\dpinst_" + other + ".exe\""},
        {"a file that is not there", "\"other folder\\" + driverInstaller + '"'},
        {"1 MB with zero bytes", std::string(1'000'000, '\0') + "\"sub folder\\" + driverInstaller,
         true},
        {"out of the folder", "\"..\\Drivers\\sub folder\\" + driverInstaller, true},
    };
    for (const auto& row : table) {
        Case run{std::string("report: ") + row.what, "1w", {extractionTool(row.report)}, {corvane}};
        if (row.installs) {
            run.steps.push_back(ran(unpacked));
        }
        run.steps.push_back(multiprotocolSetup);
        play(run);
    }
}

}  // namespace
