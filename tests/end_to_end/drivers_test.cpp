#include <gtest/gtest.h>

#include "tools/run_stage/stage.h"

const Step serial = extracted("SerialTavlinkDrivers.fzx");
const Step corvane = extracted("CorvaneTavlinkDrivers.fzx");
const Step multiprotocolSetup = setup("1w", "Halvick 16.4.10002.0", "LIVE x86");

TEST(Drivers, AreInstalledInTheirPlaceOfTheRun) {
    const std::string uninstaller = scratch + "old.exe";
    const std::string large = std::string(1'000'000, '\0') + "\"sub folder\\" + driverInstaller;
    play({{"1k: before the choice, older versions left alone",
           {serial, ran(unpacked), chooseLive,
            setup("1k", "Halvick Tavlink Serial Analyzer 16.4.10002.0")},
           {extractionTool(), installed("a", "Tavlink Serial Analyzer", "x")}},
          {"1k: before a cancelled choice",
           {serial, ran(unpacked), choose("Live Product", "Cancel")},
           {extractionTool(large), file(media + "report.txt", "of an earlier run")}},
          {"1k: without an extraction tool",
           {choose("Demonstration"),
            setup("0g", "Halvick Tavlink Serial Demo 16.4.10002.0", "DEMO")}},
          {"1w: in place of the choice, after the removal",
           {{"* | No, Skip", {"Yes, Uninstall Selected Version(s)"}},
            ran(uninstaller),
            corvane,
            ran(unpacked),
            multiprotocolSetup},
           {extractionTool(), program(uninstaller),
            installed("a", "Halvick Anything 12", uninstaller)}},
          onDescribedMachine({"1w: not on this release, and without a choice all the same",
                              {{"* | Yes | No", {"Yes"}}, multiprotocolSetup},
                              {extractionTool(), release("win2k")}}),
          {"1w: as far as the report tells",
           {corvane, multiprotocolSetup},
           {extractionTool("\"x\\" + driverInstaller)}},
          {"1r: a family that ends the run in silence", {}, {extractionTool()}}});
}
