#include "platform/shell_runner_win.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

constexpr char child[] = "--gtest_filter=ShellRunnerChild.* --gtest_also_run_disabled_tests";
const std::string report = (std::filesystem::temp_directory_path() / "child report").string();

/// What the started process runs: tells its command line's last word, folder and show mode, and
/// outlives two polls.
TEST(ShellRunnerChild, DISABLED_TellsWhatItSees) {
    STARTUPINFOA startup{};
    GetStartupInfoA(&startup);
    const std::string command = GetCommandLineA();
    std::ofstream(report) << command.substr(command.rfind(' ') + 1) << '|'
                          << std::filesystem::current_path().string() << '|' << startup.wShowWindow
                          << std::flush;
    Sleep(500);
    std::_Exit(7);
}

/// The report of the child that has ended.
std::string reported() {
    std::string line;
    std::getline(std::ifstream(report), line);
    DeleteFileA(report.c_str());
    return line;
}

TEST(ShellRunner, WaitsOnRequestForTheExitCode) {
    const std::string seen =
        "--gtest_also_run_disabled_tests|" + std::filesystem::current_path().string() + "|1";
    ShellRunner runner;
    DWORD before = GetTickCount();
    ASSERT_TRUE(runner.runAndWait(_pgmptr, child, "open"));
    EXPECT_GE(GetTickCount() - before, 500u);
    EXPECT_EQ(runner.exitCode, 7u);
    EXPECT_EQ(reported(), seen);
    before = GetTickCount();
    ASSERT_TRUE(runner.runAndWait(_pgmptr, "--gtest_filter=None", "open"));
    EXPECT_GE(GetTickCount() - before, 199u) << "a poll, of which the clock may take one off";
    EXPECT_EQ(runner.exitCode, 0u);

    runner.exitCode = 99;
    const HANDLE process = runner.start(_pgmptr, child, "open");
    EXPECT_EQ(WaitForSingleObject(process, 0), DWORD{WAIT_TIMEOUT});
    EXPECT_EQ(runner.exitCode, 0u);
    EXPECT_EQ(WaitForSingleObject(process, 30000), WAIT_OBJECT_0);
    EXPECT_EQ(reported(), seen);
    CloseHandle(process);
    EXPECT_EQ(runner.start(nullptr, "", "open"), nullptr);
    // The shell was given the single-threaded apartment that it asks for.
    EXPECT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), RPC_E_CHANGED_MODE);
}

}  // namespace
