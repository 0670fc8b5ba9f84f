#include "platform/shell_runner_win.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include <cstdlib>
#include <vector>

constexpr char child[] = "--gtest_filter=ShellRunnerChild.* --gtest_also_run_disabled_tests";

/// What the started process runs; it outlives two polls.
TEST(ShellRunnerChild, DISABLED_Runs) {
    Sleep(500);
    std::_Exit(7);
}

TEST(ShellRunner, WaitsOnRequestForTheExitCode) {
    ShellRunner runner;
    ASSERT_TRUE(runner.runAndWait(_pgmptr, child, "open"));
    EXPECT_EQ(runner.exitCode, 7u);
    const DWORD before = GetTickCount();
    ASSERT_TRUE(runner.runAndWait(_pgmptr, "--gtest_filter=None", "open"));
    EXPECT_GE(GetTickCount() - before, 199u) << "a poll, of which the clock may take one off";
    EXPECT_EQ(runner.exitCode, 0u);

    runner.exitCode = 99;
    const HANDLE process = runner.start(_pgmptr, child, "open");
    EXPECT_EQ(WaitForSingleObject(process, 0), DWORD{WAIT_TIMEOUT});
    EXPECT_EQ(runner.exitCode, 0u);
    EXPECT_EQ(WaitForSingleObject(process, 30000), WAIT_OBJECT_0);
    CloseHandle(process);
    EXPECT_TRUE(runner.result.started);
    // The shell was given the single-threaded apartment that it asks for.
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
}

TEST(ShellRunner, LeavesNoInputOfTheTimeThatItWaited) {
    const HWND window =
        CreateWindowA("STATIC", "", WS_POPUP, 0, 0, 9, 9, HWND_MESSAGE, nullptr, nullptr, nullptr);
    constexpr UINT kinds[] = {WM_KEYDOWN,    WM_SYSKEYUP,      WM_CHAR,    WM_MOUSEMOVE,
                              WM_MOUSEWHEEL, WM_NCLBUTTONDOWN, WM_COMMAND, WM_APP};
    for (const UINT kind : kinds) {
        PostMessageA(window, kind, 0, 0);
    }
    ASSERT_TRUE(ShellRunner().runAndWait(_pgmptr, "--gtest_filter=None", "open"));
    std::vector<UINT> left;
    for (const UINT kind : kinds) {
        MSG message;
        if (PeekMessageA(&message, window, kind, kind, PM_REMOVE)) {
            left.push_back(kind);
        }
    }
    EXPECT_EQ(left, (std::vector<UINT>{WM_COMMAND, WM_APP}));
    DestroyWindow(window);
}
