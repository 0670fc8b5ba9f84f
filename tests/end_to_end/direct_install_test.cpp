// The free protocol viewer: no question, older viewers go, then the hand-over.
#include <gtest/gtest.h>

#include <regex>

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
/// arguments. Its marker is there, as if an uninstaller were at work for ever.
Given old(const std::string& key, const std::string& name, const std::string& arguments = " -x") {
    const std::string uninstaller = location(key) + "\\setup.exe";
    return [=](Stage& stage) {
        program(uninstaller, "100")(stage);
        program(location(key) + "\\UninstallQmx.exe", "100")(stage);
        DeleteFileA((location(key) + "\\UninstallQmx.exe").c_str());
        writeFile(marker(key), "");
        installed(key, name, '"' + uninstaller + '"' + arguments, location(key))(stage);
    };
}
const Given newUninstaller = program(media + "UninstallQmx.exe");
Step newUninstallerRan(const std::string& key) {
    return ran(location(key) + "\\UninstallQmx.exe");
}
/// The run waits for the marker.
Step oldUninstallerRan(const std::string& key, const std::string& arguments) {
    Step step = ran(location(key) + "\\setup.exe", arguments);
    step.marker = marker(key);
    return step;
}
const Step viewerSetup =
    ran(media + "Setup.Exe",
        "/hide_usd -build=16.4.10002.0`-pid=1Q`-pf=Bluetooth SIG`-type=LIVE`-tmp=" + media + '`');

/// UTC, as the log tells it.
std::string now() {
    SYSTEMTIME time;
    GetSystemTime(&time);
    char text[32];
    wsprintfA(text, "%04d-%02d-%02d %02d:%02d:%02d", time.wYear, time.wMonth, time.wDay, time.wHour,
              time.wMinute, time.wSecond);
    return text;
}

TEST(DirectInstall, RemovesEveryViewerAndHandsOver) {
    const std::string other = scratch + "remove it.exe";
    play({
        {"no viewer", "1q", {}, {viewerSetup}},
        {"no setup utility, after the removal",
         "1q",
         {newUninstaller, old("a", viewer), removed(media + "Setup.Exe")},
         {newUninstallerRan("a"),
          box("Failed to locate program installation utility: \"" + media + "Setup.Exe\"",
              "error")}},
        {"both editions, and nothing else",
         "1q",
         {newUninstaller, old("a", viewer), old("b", suiteViewer), old("c", viewer),
          old("d", "Bluetooth Protocol Viewer 2"), old("e", "My Test Suite Observer"),
          old("f", "bluetooth protocol viewer"), old("g", "Tavlink Serial Analyzer")},
         {newUninstallerRan("b"), newUninstallerRan("a"), newUninstallerRan("c"), viewerSetup}},
        {"an uninstaller of another name, with a marker",
         "1q",
         {program(other, "100"), installed("a", viewer, other, location("a")),
          program(location("a") + "\\any.exe"), file(marker("a"))},
         {ran(other), viewerSetup}},
        {"an uninstaller that is not there",
         "1q",
         {installed("a", viewer, scratch + "absent.exe", location("a"))},
         {shellMessage, viewerSetup}},
    });
}

TEST(DirectInstall, FallsBackToTheOldUninstallerAndLogsIt) {
    SYSTEMTIME utc, local;
    GetSystemTime(&utc);
    GetLocalTime(&local);
    EXPECT_NE(utc.wHour, local.wHour) << "the clocks cannot be told apart";

    CreateDirectoryA(logFolder.c_str(), nullptr);
    writeFile(logFile, "earlier\r\n");
    const std::string start = now();
    const Given otherBuild =
        file(scratch + "ProductData.ini", "[Version Number]\r\nVersion Number=1.2.3.4\r\n");
    play({"with its arguments",
          "1q",
          {old("a", viewer, " -remove \"a b\""), otherBuild},
          {oldUninstallerRan("a", "-remove \"a b\""),
           {std::regex_replace(viewerSetup.seen, std::regex("16.4.10002.0"), "1.2.3.4"),
            {},
            Step::Kind::Programs}}});
    const std::string log = readFile(logFile),
                      time = log.substr(std::min<size_t>(9, log.size()), 19);
    EXPECT_EQ(log, "earlier\r\n" + time + " Version 16.4.10002.0 CopyFile from \"" + media +
                       "UninstallQmx.exe\" to \"" + location("a") +
                       "\\UninstallQmx.exe\" failed - 2\r\n");
    EXPECT_LE(start, time);
    EXPECT_LE(time, now());
    removeFolder(logFolder);

    // Kept: the arguments start at a fixed distance behind the name.
    play({"cut by position",
          "1q",
          {old("a", viewer, "/x -remove")},
          {oldUninstallerRan("a", "x -remove"), viewerSetup}});
    EXPECT_EQ(readFile(logFile), "") << "the log's folder is not made";
}

TEST(DirectInstall, StopsTheRunningCopiesOfTheViewerAlone) {
    const std::string program = "\\Executables\\Core\\QMX.exe";
    play({"running copies",
          "1q",
          {newUninstaller, old("a", viewer), running(location("a") + program),
           running(location("b") + program),
           running(location("a") + "\\Executables\\Core\\qmx2.exe")},
          {newUninstallerRan("a"), viewerSetup},
          Case().arguments,
          [](Stage& stage) {
              std::string alive;
              for (const PROCESS_INFORMATION& copy : stage.copies) {
                  alive += WaitForSingleObject(copy.hProcess, 0) == WAIT_TIMEOUT ? "alive " : "- ";
              }
              EXPECT_EQ(alive, "- alive alive ");
          }});
}

}  // namespace
