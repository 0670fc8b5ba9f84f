// The free protocol viewer: no question, older viewers go, then the hand-over.
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>

#include "tests/end_to_end/stage.h"

namespace {

const std::string logFolder = "C:\\users\\Public\\Documents\\Halvick Test Equipment";
const std::string logFile = logFolder + "\\InstallLog.txt";
constexpr const char *suiteViewer = "Test Suite Observer", *viewer = "Bluetooth Protocol Viewer";

std::string location(const std::string& key) {
    return scratch + "old " + key;
}
std::string marker(const std::string& key) {
    return location(key) + "\\liveimport.ini";
}

/// A viewer, listed in the order of `key`: behind its uninstaller in quotes the command has the
/// arguments. The marker is there, as if an uninstaller were at work for ever.
Given old(const std::string& key, const std::string& name, const std::string& arguments = " -x") {
    const std::string uninstaller = location(key) + "\\setup.exe";
    return [=] {
        program(uninstaller)();
        file(marker(key))();
        file(location(key) + "\\UninstallQmx.exe.script", "100")();
        installed(key, name, '"' + uninstaller + '"' + arguments, location(key))();
    };
}
const Given newUninstaller = program(media + "UninstallQmx.exe");
Step newUninstallerRan(const std::string& key) {
    return ran(location(key) + "\\UninstallQmx.exe");
}
Step oldUninstallerRan(const std::string& arguments) {
    return ran(location("a") + "\\setup.exe", arguments);
}
const Step waitForMarker{marker("a"), {}, Step::Kind::WaitForFile};

Step viewerSetup(const std::string& build = defaultBuild) {
    return ran(
        media + "Setup.Exe",
        "/hide_usd -build=" + build + "`-pid=1Q`-pf=Bluetooth SIG`-type=LIVE`-tmp=" + media + '`');
}

TEST(DirectInstall, RemovesEveryViewerAndHandsOver) {
    const std::string other = scratch + "remove it.exe";
    play({{"1q: no viewer", {viewerSetup()}},
          {"1q: no setup utility, after the removal",
           {newUninstallerRan("a"),
            box("Failed to locate program installation utility: \"" + media + "Setup.Exe\"",
                "error")},
           {newUninstaller, old("a", viewer), removed(media + "Setup.Exe"),
            file(location("a") + "\\UninstallQmx.exe", "an older one")}},
          {"1q: both editions, and nothing else",
           {newUninstallerRan("b"), newUninstallerRan("a"), newUninstallerRan("c"), viewerSetup()},
           {newUninstaller, old("a", viewer), old("b", suiteViewer), old("c", viewer),
            old("d", "Bluetooth Protocol Viewer 2"), old("e", "My Test Suite Observer"),
            old("f", "bluetooth protocol viewer"), old("g", "Tavlink Serial Analyzer")}},
          {"1q: an uninstaller of another name, and one that is not there",
           {ran(other), shellMessage, viewerSetup()},
           {program(other), file(marker("a")), installed("a", viewer, other, location("a")),
            installed("b", viewer, scratch + "absent.exe")}}});
}

/// UTC, as the log tells it.
std::string now() {
    const std::time_t time = std::time(nullptr);
    char text[20];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::gmtime(&time));
    return text;
}

TEST(DirectInstall, FallsBackToTheOldUninstallerAndLogsIt) {
    SYSTEMTIME utc, local;
    GetSystemTime(&utc);
    GetLocalTime(&local);
    // Where the test run has set the zone; another machine may well be on UTC.
    EXPECT_TRUE(std::getenv("TZ") == nullptr || utc.wHour != local.wHour);
    file(logFile, "earlier\r\n")();
    const std::string start = now();
    play({"1q: with its arguments",
          {oldUninstallerRan("-remove \"a b\""), waitForMarker, viewerSetup("1.2.3.4")},
          {old("a", viewer, " -remove \"a b\""),
           file(scratch + "ProductData.ini", "[Version Number]\r\nVersion Number=1.2.3.4\r\n")}});
    const std::string log = readFile(logFile), time = log.substr(log.find('\n') + 1, 19);
    EXPECT_EQ(log, "earlier\r\n" + time + " Version 16.4.10002.0 CopyFile from \"" + media +
                       "UninstallQmx.exe\" to \"" + location("a") +
                       "\\UninstallQmx.exe\" failed - 2\r\n");
    EXPECT_LE(start, time);
    EXPECT_LE(time, now());
    removeFolder(logFolder);

    // Kept: the arguments start at a fixed distance behind the name.
    play({"1q: cut by position",
          {oldUninstallerRan("x -remove"), waitForMarker, viewerSetup()},
          {old("a", viewer, "/x -remove")}});
    EXPECT_EQ(readFile(logFile), "") << "the log's folder is not made";
}

TEST(DirectInstall, StopsTheRunningCopiesOfTheViewerAlone) {
    const std::string core = "\\Executables\\Core\\";
    std::vector<HANDLE> processes;
    play({"1q: running copies",
          {newUninstallerRan("a"), viewerSetup()},
          {newUninstaller, old("a", viewer), running(location("a") + core + "QMX.exe", processes),
           running(location("b") + core + "QMX.exe", processes),
           running(location("a") + core + "qmx2.exe", processes)}});
    std::string alive;
    for (const HANDLE process : processes) {
        alive += WaitForSingleObject(process, 0) == WAIT_TIMEOUT ? "alive " : "ended ";
        TerminateProcess(process, 0);
        CloseHandle(process);
    }
    EXPECT_EQ(alive, "ended alive alive ");
}

}  // namespace
