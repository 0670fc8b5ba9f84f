// The free protocol viewer: no question, older viewers go, then the hand-over.
#include <gtest/gtest.h>

#include <regex>

#include "tests/end_to_end/hand_over.h"
#include "tests/end_to_end/registry_fixture.h"

namespace {

constexpr const char* testSuiteViewer = "Test Suite Observer";
constexpr const char* protocolViewer = "Bluetooth Protocol Viewer";
constexpr const char* logFolder = "C:\\users\\Public\\Documents\\Halvick Test Equipment";

class DirectInstall : public testing::Test {
  protected:
    ~DirectInstall() override { removeFolder(logFolder); }

    std::string location(const std::string& key) const { return media.scratch + "old " + key; }
    std::string uninstaller(const std::string& key) const { return location(key) + "\\setup.exe"; }
    /// Registers a viewer; its uninstall command is `uninstaller` in quotes and what follows.
    void addInstalled(const std::string& key, const std::string& name,
                      const std::string& arguments) {
        layOutStandIn(uninstaller(key), "wait\t100");
        registry.addInstalled(key, name, "12.0.0.0", '"' + uninstaller(key) + '"' + arguments,
                              location(key));
    }
    InstallerRun startViewer() { return start(media, media.installer("1q")); }
    std::string directSetup() const {
        return media.path("Setup.Exe") +
               " /hide_usd -build=16.4.10002.0`-pid=1Q`-pf=Bluetooth SIG`-type=LIVE`-tmp=" +
               media.folder + '`';
    }

    Media media;
    RegistryFixture registry;
};

TEST_F(DirectInstall, GoesStraightToTheSetupUtilityWhenNoViewerIsInstalled) {
    InstallerRun run = startViewer();
    expectStarted(run, media, {directSetup()});
}

TEST_F(DirectInstall, RemovesEveryViewerWithTheNewUninstaller) {
    layOutStandIn(media.path("UninstallQmx.exe"), "wait\t100");
    addInstalled("a", protocolViewer, " -remove -quiet");
    addInstalled("b", testSuiteViewer, " -remove");
    addInstalled("c", "Tavlink Serial Analyzer", " -remove");
    InstallerRun run = startViewer();
    expectStarted(run, media,
                  {location("b") + "\\UninstallQmx.exe", location("a") + "\\UninstallQmx.exe",
                   directSetup()});
    expectOneAfterAnother(media);
}

TEST_F(DirectInstall, RunsAnUninstallerOfAnotherNameAsItIs) {
    const std::string other = media.scratch + "remove it.exe";
    layOutStandIn(other);
    registry.addInstalled("a", protocolViewer, "12.0.0.0", other, location("a"));
    writeFile(media.scratch + "liveimport.ini", "");
    InstallerRun run = startViewer();
    expectStarted(run, media, {other, directSetup()});
}

TEST_F(DirectInstall, FallsBackToTheOldUninstallerAndItsMarker) {
    makeFolder(logFolder);
    const std::string log = std::string(logFolder) + "\\InstallLog.txt";
    writeFile(log, "earlier\r\n");
    addInstalled("a", protocolViewer, " -remove \"a b\"");
    const std::string marker = location("a") + "\\liveimport.ini";
    writeFile(marker, "");
    InstallerRun run = startViewer();
    // The uninstaller leaves its work to another program, which removes the marker at its end.
    media.awaitRecords(1);
    Sleep(1500);
    FILETIME removed;
    GetSystemTimeAsFileTime(&removed);
    DeleteFileA(marker.c_str());
    expectStarted(run, media, {uninstaller("a") + " -remove \"a b\"", directSetup()});
    const long long removedAt =
        ((static_cast<long long>(removed.dwHighDateTime) << 32) + removed.dwLowDateTime) / 10000;
    const auto records = media.records();
    ASSERT_EQ(records.size(), 2u);
    EXPECT_GE(records[1].started, removedAt);
    EXPECT_LT(records[1].started, removedAt + 2000);

    const std::string line = readFile(log);
    const std::string timestamp = "2026-01-01 00:00:00";
    ASSERT_TRUE(line.starts_with("earlier\r\n"));
    EXPECT_EQ(line.substr(9 + timestamp.size()),
              " Version 16.4.10002.0 CopyFile from \"" + media.path("UninstallQmx.exe") +
                  "\" to \"" + location("a") + "\\UninstallQmx.exe\" failed - 2\r\n");
    EXPECT_TRUE(std::regex_match(line.substr(9, timestamp.size()),
                                 std::regex("\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d")));
}

// Kept: the arguments start at a fixed distance behind the name.
TEST_F(DirectInstall, CutsTheOldCommandByPosition) {
    addInstalled("a", protocolViewer, "/x -remove");
    InstallerRun run = startViewer();
    expectStarted(run, media, {uninstaller("a") + " x -remove", directSetup()});
    EXPECT_FALSE(fileExists(std::string(logFolder) + "\\InstallLog.txt"));
}

TEST_F(DirectInstall, StopsTheRunningCopiesOfTheViewerAlone) {
    layOutStandIn(media.path("UninstallQmx.exe"));
    addInstalled("a", protocolViewer, " -remove");
    PROCESS_INFORMATION copies[2];
    const std::string programs[] = {location("a") + "\\Executables\\Core\\QMX.exe",
                                    location("b") + "\\Executables\\Core\\qmx.exe"};
    for (int copy : {0, 1}) {
        layOutStandIn(programs[copy], "await\t" + programs[copy]);
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        ASSERT_TRUE(CreateProcessA(programs[copy].c_str(), nullptr, nullptr, nullptr, FALSE, 0,
                                   nullptr, nullptr, &startup, &copies[copy]));
    }
    media.awaitRecords(2);
    media.forgetRecords();
    InstallerRun run = startViewer();
    expectStarted(run, media, {location("a") + "\\UninstallQmx.exe", directSetup()});
    EXPECT_EQ(WaitForSingleObject(copies[0].hProcess, 0), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(copies[1].hProcess, 0), DWORD{WAIT_TIMEOUT});
    for (const PROCESS_INFORMATION& copy : copies) {
        TerminateProcess(copy.hProcess, 0);
        CloseHandle(copy.hProcess);
        CloseHandle(copy.hThread);
    }
}

}  // namespace
