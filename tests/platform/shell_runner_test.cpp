#include "platform/shell_runner.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <set>
#include <string>
#include <thread>

#include "platform/shell_messages.h"

namespace {

std::string ownPath() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    return path;
}

const char childParameters[] = "--gtest_filter=ShellRunnerChild.* --gtest_also_run_disabled_tests";
constexpr DWORD childDuration = 500;  // milliseconds
constexpr int childExitCode = 7;

/// What the started process runs: outlives two polls.
TEST(ShellRunnerChild, DISABLED_LivesAndEnds) {
    Sleep(childDuration);
    std::_Exit(childExitCode);
}

/// Closes message boxes titled "Error" that this process shows, and notes their texts. The shell
/// shows boxes of its own.
class ErrorBoxes {
  public:
    ErrorBoxes() : watcher([this] { watch(); }) {}
    ~ErrorBoxes() { stop(); }
    void stop() {
        done = true;
        if (watcher.joinable()) {
            watcher.join();
        }
    }
    bool shown(const char* text) const { return texts.count(text) != 0; }

  private:
    void watch() {
        while (!done) {
            const HWND box = FindWindowA("#32770", "Error");
            DWORD process = 0;
            GetWindowThreadProcessId(box, &process);
            char label[512] = "";
            if (process == GetCurrentProcessId() &&
                GetDlgItemTextA(box, 0xFFFF, label, sizeof label) != 0) {
                texts.insert(label);
                PostMessageA(box, WM_COMMAND, IDOK, 0);
            }
            Sleep(10);
        }
    }

    std::set<std::string> texts;
    std::atomic<bool> done = false;
    std::thread watcher;
};

TEST(ShellRunner, WaitsForTheProcessAndReadsItsExitCode) {
    ShellRunner runner;
    const DWORD before = GetTickCount();
    ASSERT_TRUE(runner.runAndWait(ownPath().c_str(), childParameters, "open"));
    EXPECT_GE(GetTickCount() - before, childDuration);
    EXPECT_EQ(runner.exitCode, DWORD{childExitCode});
}

TEST(ShellRunner, RunOfAProcessThatEndsAtOnceLastsAPoll) {
    ShellRunner runner;
    const DWORD before = GetTickCount();
    ASSERT_TRUE(runner.runAndWait(ownPath().c_str(), "--gtest_filter=None", "open"));
    EXPECT_GE(GetTickCount() - before, 199u);  // the clock's step may take one off
    EXPECT_EQ(runner.exitCode, 0u);
}

TEST(ShellRunner, StartDoesNotWait) {
    ShellRunner runner;
    runner.exitCode = 99;
    const HANDLE process = runner.start(ownPath().c_str(), childParameters, "open");
    ASSERT_NE(process, nullptr);
    EXPECT_EQ(runner.exitCode, 0u);
    ASSERT_EQ(WaitForSingleObject(process, 30000), WAIT_OBJECT_0);
    DWORD code = 0;
    EXPECT_TRUE(GetExitCodeProcess(process, &code));
    EXPECT_EQ(code, DWORD{childExitCode});
}

TEST(ShellRunner, MissingFileIsSilentAndTheObjectServesOn) {
    ErrorBoxes boxes;
    ShellRunner runner;
    EXPECT_FALSE(runner.runAndWait("C:\\no such file.exe", "", "open"));
    EXPECT_EQ(runner.start(nullptr, "", "open"), nullptr);
    boxes.stop();
    EXPECT_FALSE(boxes.shown("The specified path was not found."));
    EXPECT_FALSE(boxes.shown("Unknown ShellExecute error !"));
    EXPECT_TRUE(runner.runAndWait(ownPath().c_str(), "--gtest_filter=None", "open"));
}

TEST(ShellRunner, FailedStartIsReported) {
    char folder[MAX_PATH] = "";
    GetTempPathA(sizeof folder, folder);
    const std::string path = std::string(folder) + "shell_runner.unassociated";
    CloseHandle(CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    ErrorBoxes boxes;
    EXPECT_EQ(ShellRunner().start(path.c_str(), nullptr, "open"), nullptr);
    boxes.stop();
    EXPECT_TRUE(boxes.shown(shellFailureMessage(31, 0)));
    DeleteFileA(path.c_str());
}

}  // namespace
