#include "desk/computer/dry_run.h"

#include "installed/installation_index.h"
#include "tests/installed/described_tree.h"
#include "tests/rows.h"

namespace {

Json dryRunOf(const std::string& code, const MachineDescription& machine) {
    return dryRun({.identity = {code, "Name"},
                   .sourceDirectory = "D:\\",
                   .files = {"Setup.Exe", "flatten.exe"}},
                  machine);
}

const std::string version = "Halvick Tavlink Classic Analyzer";
const std::string list = std::string(uninstallListKey) + '\\';

/// A machine with one version installed, whose entry says this otherwise.
MachineDescription withVersion(const FieldMap& changed) {
    MachineDescription machine = emptyMachine({});
    setEntry(machine.registry, list + "one", version);
    setTexts(machine.registry, list + "one", changed);
    return machine;
}

}  // namespace

// Support asks for these first.
TEST(DryRun, SaysWhyAnInstalledVersionIsNotRemoved) {
    const std::string notFound = inQuotes(version) + " is not found: ";
    const std::string notRemoved = inQuotes(version) + " is not removed: ";
    using Value = std::pair<std::string, std::string>;
    expectRows<Value, Json>(
        {{{"DisplayVersion", "12.0.0.0"}, Json::array()},
         {{"DisplayName", "Another Program"}, Json::array()},
         {{"DisplayVersion", "12"},
          {notFound +
           "its \"DisplayVersion\" is missing or is not four numbers with dots between."}},
         {{"DisplayVersion", "10.9.9.9"}, {notFound + "its version is not above 10."}},
         {{"UninstallString", std::string(260, 'x')},
          {notFound + "it gives no \"UninstallString\" of at most 259 characters."}},
         {{"InstallLocation", std::string(260, 'x')},
          {notFound + "it gives no \"InstallLocation\" of at most 259 characters."}},
         {{"UninstallString", "C:\\remove.exe /S"},
          {notRemoved + "\"C:\\remove.exe /S\" as a whole is not the path of a program."}}},
        [](const Value& changed) {
            MachineDescription machine = withVersion({changed});
            setTexts(machine.registry, list + "one\\below", {{"DisplayName", version}});
            return dryRunOf("04", machine)["notes"];
        });
}

TEST(DryRun, LooksAtTheVersionsThatTheRunOffers) {
    const MachineDescription machine = withVersion({{"DisplayVersion", "10.0.0.0"}});
    EXPECT_EQ(dryRunOf("1w", machine)["notes"].size(), 1u) << "any of the maker's";
    EXPECT_EQ(dryRunOf("07", machine)["notes"].size(), 0u) << "its own";
    EXPECT_EQ(dryRunOf("1m", machine)["notes"].size(), 0u) << "none";
}

TEST(DryRun, SaysWhereItEndsAndWhatItLeavesOut) {
    MachineDescription user = emptyMachine({}), versions = withVersion({});
    user.administrator = false;
    EXPECT_EQ(dryRunOf("04", user)["earlyEnd"], "The run ends: the user is no administrator.");
    EXPECT_EQ(dryRunOf("04", emptyMachine({"Windows 98"}))["earlyEnd"],
              "The run ends: this Windows is refused.");
    EXPECT_EQ(dryRunOf("16", versions)["endings"], Json::array());
    EXPECT_EQ(dryRunOf("1m", emptyMachine({"Windows 2000"}))["notes"],
              Json({"The drivers in SerialTavlinkDrivers.fzx are not for this Windows and are left "
                    "out."}));
    const std::string recorded = std::string(makerTree) + "one";
    setRecord(versions.registry, recorded);
    setTexts(versions.registry, recorded, {{"Program Folder", version + " 16.4.10002.0"}});
    const Json run = dryRunOf("04", versions);
    EXPECT_EQ(run["endings"][0]["programFolder"],
              "Halvick Tavlink Classic Analyzer 16.4.10002.0 2");
    EXPECT_EQ(run["endings"][0]["programFolderNumber"], 2);
    EXPECT_EQ(run["notes"].size(), 1u) << "the numbers are those of what is not removed";
}

TEST(DryRun, HearsOfAReleaseWhatTheInstallerHears) {
    expectRows<std::string, std::string>(
        {{"windows xp", "Windows XP  32"},
         {"Windows XP x64", "Windows XP Professional x64 Edition  64"},
         {"Windows Server 2003 R2", "Windows Server 2003 R2  32"},
         {"Windows Home Server", "Windows Home Server  32"},
         {"Windows 11", "Windows 8  64"},
         {"Windows Server 2022", "Windows Server 2012  64"}},
        [](const std::string& release) {
            const Json run = dryRunOf("04", emptyMachine({release}));
            return run["system"].get<std::string>() + ' ' + run["bits"].dump();
        });
}

TEST(DryRun, TellsInWordsWhatBecomesOfAViewer) {
    const std::string words =
        runInWords(dryRunOf("1Q", withVersion({{"DisplayName", "Bluetooth Protocol Viewer"},
                                               {"UninstallString", "\"C:\\V\\Setup.exe\" /remove"},
                                               {"InstallLocation", "C:\\V"}})));
    for (const char* told :
         {"stops  C:\\V\\",
          "copies  D:\\UninstallQmx.exe\n     to C:\\V\\UninstallQmx.exe\n     fails", "logs  ",
          "runs  \"C:\\V\\Setup.exe\" /remove\n     removes Bluetooth Protocol Viewer",
          "waits  180 seconds", "starts    D:\\Setup.Exe\n"}) {
        EXPECT_NE(words.find(told), std::string::npos) << told << " in\n" << words;
    }
}

// Texts go to customers; the archives' key does not.
TEST(DryRun, HidesTheKeyOfTheArchives) {
    const std::string words = runInWords(dryRunOf("1m", emptyMachine({})));
    EXPECT_NE(words.find(" -fzxkey ... -rep "), std::string::npos) << words;
}
