// The free protocol viewer: no question, older viewers go, then the hand-over.
#include <gtest/gtest.h>

#include <regex>

#include "tests/end_to_end/stage.h"

namespace {

constexpr const char* testSuiteViewer = "Test Suite Observer";
constexpr const char* protocolViewer = "Bluetooth Protocol Viewer";
const std::string logFolder = "C:\\users\\Public\\Documents\\Halvick Test Equipment";
const std::string logFile = logFolder + "\\InstallLog.txt";

class DirectInstall : public testing::Test {
  protected:
    ~DirectInstall() override { removeFolder(logFolder); }

    std::string location(const std::string& key) const { return stage.scratch + "old " + key; }
    std::string oldUninstaller() const { return location("a") + "\\setup.exe"; }
    /// Of the viewer `key`.
    std::string newUninstallerRan(const std::string& key) const {
        return Stage::ran(location(key) + "\\UninstallQmx.exe");
    }
    /// Registers a viewer; behind its uninstaller in quotes the command has the arguments.
    void addInstalled(const std::string& key, const char* name, const std::string& arguments) {
        stage.layOut(location(key) + "\\setup.exe", "100");
        stage.addInstalled(key, name, "12.0.0.0", '"' + location(key) + "\\setup.exe\"" + arguments,
                           location(key));
    }

    Stage stage{"1q"};
    const std::string setup = Stage::ran(
        stage.path("Setup.Exe"),
        "/hide_usd -build=16.4.10002.0`-pid=1Q`-pf=Bluetooth SIG`-type=LIVE`-tmp=" + stage.folder +
            '`');
};

TEST_F(DirectInstall, RemovesEveryViewerWithTheNewUninstaller) {
    stage.run({}, setup);
    stage.layOut(stage.path("UninstallQmx.exe"), "100");
    addInstalled("a", protocolViewer, " -remove -quiet");
    stage.run({}, newUninstallerRan("a") + setup);
    addInstalled("b", testSuiteViewer, " -remove");
    addInstalled("c", "Tavlink Serial Analyzer", " -remove");
    stage.run({}, newUninstallerRan("b") + newUninstallerRan("a") + setup);
}

TEST_F(DirectInstall, RunsAnUninstallerOfAnotherNameAsItIs) {
    const std::string other = stage.scratch + "remove it.exe";
    stage.layOut(other);
    stage.addInstalled("a", protocolViewer, "12.0.0.0", other, location("a"));
    writeFile(stage.scratch + "liveimport.ini", "");
    stage.run({}, Stage::ran(other) + setup);
}

TEST_F(DirectInstall, FallsBackToTheOldUninstallerAndItsMarker) {
    CreateDirectoryA(logFolder.c_str(), nullptr);
    writeFile(logFile, "earlier\r\n");
    addInstalled("a", protocolViewer, " -remove \"a b\"");
    const std::string marker = location("a") + "\\liveimport.ini";
    writeFile(marker, "");
    const std::string removal = Stage::ran(oldUninstaller(), "-remove \"a b\"");
    {
        InstallerRun run(stage.installer, stage.arguments());
        // The uninstaller leaves its work to another program, which removes the marker at its end.
        stage.awaitRecords(removal);
        EXPECT_EQ(WaitForSingleObject(run.process.hProcess, 1500), DWORD{WAIT_TIMEOUT});
        EXPECT_EQ(stage.records(), removal);
        DeleteFileA(marker.c_str());
        EXPECT_EQ(WaitForSingleObject(run.process.hProcess, 2000), WAIT_OBJECT_0);
        Stage::expectEnd(run);
        EXPECT_EQ(stage.records(), removal + setup);
    }
    const std::string log = readFile(logFile), earlier = "earlier\r\n";
    const size_t message = earlier.size() + std::string("2026-01-01 00:00:00").size();
    EXPECT_TRUE(
        std::regex_match(log.substr(0, message),
                         std::regex("earlier\r\n\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d")));
    EXPECT_EQ(log.substr(std::min(message, log.size())),
              " Version 16.4.10002.0 CopyFile from \"" + stage.path("UninstallQmx.exe") +
                  "\" to \"" + location("a") + "\\UninstallQmx.exe\" failed - 2\r\n");
}

// Kept: the arguments start at a fixed distance behind the name.
TEST_F(DirectInstall, CutsTheOldCommandByPosition) {
    addInstalled("a", protocolViewer, "/x -remove");
    stage.run({}, Stage::ran(oldUninstaller(), "x -remove") + setup);
    EXPECT_EQ(readFile(logFile), "") << "the log's folder is not made";
}

TEST_F(DirectInstall, StopsTheRunningCopiesOfTheViewerAlone) {
    stage.layOut(stage.path("UninstallQmx.exe"));
    addInstalled("a", protocolViewer, " -remove");
    PROCESS_INFORMATION copies[2];
    std::string started;
    for (const int copy : {0, 1}) {
        const std::string program =
            location(copy == 0 ? "a" : "b") + "\\Executables\\Core\\QMX.exe";
        stage.layOut(program, "60000");
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        ASSERT_TRUE(CreateProcessA(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr,
                                   nullptr, &startup, &copies[copy]));
        started += '"' + program + "\"\n";
        stage.awaitRecords(started);
    }
    stage.run({}, newUninstallerRan("a") + setup);
    EXPECT_EQ(WaitForSingleObject(copies[0].hProcess, 0), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(copies[1].hProcess, 0), DWORD{WAIT_TIMEOUT});
    for (const PROCESS_INFORMATION& copy : copies) {
        TerminateProcess(copy.hProcess, 0);
        CloseHandle(copy.hProcess);
        CloseHandle(copy.hThread);
    }
}

}  // namespace
