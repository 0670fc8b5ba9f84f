// Runs whose effects only a real machine shows.
#include <gtest/gtest.h>
#include <shlobj.h>

#include <cstdlib>
#include <ctime>
#include <fstream>
#include <map>
#include <set>

#include "platform/operating_system_win.h"
#include "tools/dialog_driver/dialog_window_win.h"
#include "tools/run_stage/stage_win.h"
#include "tools/run_stage/viewers.h"

namespace {

/// UTC, as the log tells it.
std::string now() {
    const std::time_t time = std::time(nullptr);
    char text[20];
    std::strftime(text, sizeof text, "%Y-%m-%d %H:%M:%S", std::gmtime(&time));
    return text;
}

TEST(WindowsAlone, FallsBackToTheOldUninstallerAndLogsIt) {
    SYSTEMTIME utc, local;
    GetSystemTime(&utc);
    GetLocalTime(&local);
    // Where the test run has set the zone; another machine may well be on UTC.
    EXPECT_TRUE(std::getenv("TZ") == nullptr || utc.wHour != local.wHour);
    char documents[MAX_PATH] = "";
    SHGetFolderPathA(nullptr, CSIDL_COMMON_DOCUMENTS, nullptr, SHGFP_TYPE_CURRENT, documents);
    const std::string logFolder = std::string(documents) + "\\Halvick Test Equipment";
    const std::string logFile = logFolder + "\\InstallLog.txt";
    const Step waitForMarker{marker("a"), {}, Step::Kind::WaitForFile};
    file(logFile, "earlier\r\n")();
    const std::string start = now();
    play({{"1q: with its arguments",
           {ran(location("a") + "\\setup.exe", "-remove \"a b\""), waitForMarker,
            viewerSetup("1.2.3.4")},
           {old("a", viewer, " -remove \"a b\""),
            file(scratch + "ProductData.ini", "[Version Number]\r\nVersion Number=1.2.3.4\r\n")}}});
    const std::string log = readFile(logFile), time = log.substr(log.find('\n') + 1, 19);
    EXPECT_EQ(log, "earlier\r\n" + time + " Version 16.4.10002.0 CopyFile from \"" + media +
                       "UninstallQmx.exe\" to \"" + location("a") +
                       "\\UninstallQmx.exe\" failed - 2\r\n");
    EXPECT_LE(start, time);
    EXPECT_LE(time, now());
    removeFolder(logFolder);
}

TEST(WindowsAlone, StopsTheRunningCopiesOfTheViewerAlone) {
    const std::string core = "\\Executables\\Core\\";
    std::vector<HANDLE> processes;
    play({{"1q: running copies",
           inOrder({replaced("a"), {viewerSetup()}}),
           {newUninstaller, old("a", viewer), running(location("a") + core + "QMX.exe", processes),
            running(location("b") + core + "QMX.exe", processes),
            running(location("a") + core + "qmx2.exe", processes)}}});
    std::string alive;
    for (const HANDLE process : processes) {
        alive += WaitForSingleObject(process, 0) == WAIT_TIMEOUT ? "alive " : "ended ";
        TerminateProcess(process, 0);
        CloseHandle(process);
    }
    EXPECT_EQ(alive, "ended alive alive ");
}

TEST(WindowsAlone, LooksForOlderVersionsInTheViewOf32BitPrograms) {
    if (!on64BitWindows()) {
        GTEST_SKIP() << "there is one view";
    }
    const std::string key = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\a";
    std::vector<Given> given;
    for (const auto& [name, text] : {std::pair("DisplayName", "Tavlink Classic Analyzer"),
                                     {"DisplayVersion", "12.0.0.0"},
                                     {"UninstallString", "x"},
                                     {"InstallLocation", "x"}}) {
        given.push_back(registeredBelow(HKEY_LOCAL_MACHINE, key, name, text, KEY_WOW64_64KEY));
    }
    play({{"04: listed for 64-bit programs",
           {chooseLive, setup("04", "Halvick Tavlink Classic Analyzer 16.4.10002.0")},
           given}});
}

TEST(WindowsAlone, ComesInFrontOfWhatCoversTheScreen) {
    const HWND cover = CreateWindowA("STATIC", "", WS_POPUP | WS_VISIBLE, 0, 0, 4000, 4000, nullptr,
                                     nullptr, nullptr, nullptr);
    SetForegroundWindow(cover);
    std::string inFront, inTheMiddle;
    Step choice = chooseLive;
    choice.meanwhile = [&] {
        const HWND front = GetForegroundWindow();
        RECT place{};
        GetWindowRect(front, &place);
        const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
        inFront = DialogWindow{front}.title();
        inTheMiddle = DialogWindow{GetAncestor(WindowFromPoint(middle), GA_ROOT)}.title();
    };
    play({{"04: covered", {choice, classicSetup}}});
    DestroyWindow(cover);
    EXPECT_EQ(inFront, "Tavlink Classic Analyzer 16.4.10002.0 Installation");
    EXPECT_EQ(inTheMiddle, inFront);
}

/// Into the machine's own queue of input.
void press(BYTE key) {
    keybd_event(key, 0, 0, 0);
    keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
}

TEST(WindowsAlone, TakesNoAnswerThatWasTypedWhileAnUninstallerRan) {
    const std::string uninstaller = scratch + "uninstall.exe", begun = scratch + "begun";
    Step removal = ran(uninstaller);
    removal.meanwhile = [&] {
        const DWORD start = GetTickCount();
        while (readFile(begun).empty() && GetTickCount() - start < 60000) {
            Sleep(10);
        }
        press(VK_RETURN);
    };
    const Step choice{"* | Help", {}, Step::Kind::Dialog, [] { press(VK_ESCAPE); }};
    play({{"04: typed ahead",
           {{"* | No, Skip", {"Yes, Uninstall Selected Version(s)"}}, removal, choice},
           {program(uninstaller, scratch + "Install.exe\t" + begun + "\n2000"),
            installed("a", "Tavlink Classic Analyzer", uninstaller)}}});
}

// On the releases that Wine can report for a program.
TEST(WindowsAlone, EveryReportedReleaseMeetsItsPolicy) {
    if (stageSystem() != System::Wine) {
        GTEST_SKIP() << "Windows reports no other release than its own";
    }
    const Step refusal = box(
        "This product is only supported on Windows 7 and Windows 8 operating systems.", "warning");
    // Version 5.2 is the 64-bit XP wherever the processor is a 64-bit one. This Wine has the
    // product types of win7 and win2008r2 the wrong way round.
    const bool is64Bit = queryOperatingSystem().nativeArchitecture == architectureAmd64;
    const std::string version52 = is64Bit ? "" : "Windows Server 2003 Service Pack 2";
    const std::set<std::string> refused = {"win20", "win95", "win98", "winme", "nt351", "nt40"};
    std::map<std::string, std::string> asksAbout = {
        {"win2k", "Windows 2000 Service Pack 4"},
        {"winxp64", version52},
        {"win2003", version52},
        {"win2008", "Windows Server 2008 Service Pack 2"},
        {"win7", "Windows Server 2008 R2 Service Pack 1"}};
    // A product that has drivers, though none for Windows 2000, and a setup for each processor.
    const std::vector<Step> none,
        drivers = {extracted("SerialTavlinkDrivers.fzx"), ran(unpacked)},
        installs = {chooseLive, setup("1m", "Halvick Tavlink Industrial Analyzer 16.4.10002.0",
                                      "LIVE " + processor, processor)};
    // Set by the script that makes a document of it.
    const char* matrix = std::getenv("RELEASE_MATRIX");
    for (const std::string name :
         {"win20", "win95", "win98", "winme", "nt351", "nt40", "win2k", "winxp", "winxp64",
          "win2003", "vista", "win2008", "win7", "win2008r2", "win8", "win81", "win10"}) {
        const std::vector<Step> question = {
            {"*not been tested on " + asksAbout[name] +
                 ".\n\nWould you like to continue the installation? | Yes | No",
             {"Yes"}}};
        const std::vector<Step> steps = refused.contains(name)
                                            ? std::vector{refusal}
                                            : inOrder({asksAbout[name].empty() ? none : question,
                                                       name == "win2k" ? none : drivers, installs});
        const std::string seen = play({"1m: " + name, steps, {release(name), extractionTool()}});
        if (matrix != nullptr) {
            std::ofstream(matrix + processor, std::ios::app | std::ios::binary)
                << "release " << name << '\n'
                << seen;
        }
    }
}

}  // namespace
