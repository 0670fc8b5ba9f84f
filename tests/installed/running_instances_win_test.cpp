#include "installed/running_instances_win.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <sddl.h>

#include <filesystem>

#include "platform/shell_runner_win.h"
#include "tools/run_stage/systems_win.h"

namespace {

constexpr char running[] = "installer test: running";

/// A process that does not end by itself.
TEST(RunningInstancesChild, DISABLED_Runs) {
    SetEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, running));
    Sleep(60000);
}

/// Lets everybody do this much with the process: a word of the security descriptor language.
void allow(HANDLE process, const std::string& rights) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    EXPECT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorA(
        ("D:(A;;" + rights + ";;;WD)").c_str(), SDDL_REVISION_1, &descriptor, nullptr));
    EXPECT_TRUE(SetKernelObjectSecurity(process, DACL_SECURITY_INFORMATION, descriptor));
    LocalFree(descriptor);
}

// No row has the path of this process, which a slip would end as if nothing had failed.
TEST(RunningInstances, AreThoseOfTheWholeNameAndPath) {
    const std::string own = _pgmptr, name = "stopped instance.exe";
    const std::string path = (std::filesystem::temp_directory_path() / name).string();
    ASSERT_TRUE(CopyFileA(own.c_str(), path.c_str(), FALSE));
    const HANDLE ready = CreateEventA(nullptr, FALSE, FALSE, running);
    const HANDLE process = ShellRunner().start(
        path.c_str(), "--gtest_filter=RunningInstancesChild.* --gtest_also_run_disabled_tests",
        "open");
    ASSERT_EQ(WaitForSingleObject(ready, 30000), WAIT_OBJECT_0);

    EXPECT_EQ(terminateProcessesByPath(name.substr(0, name.size() - 4), path), 0u);
    EXPECT_EQ(WaitForSingleObject(process, 0), DWORD{WAIT_TIMEOUT});
    allow(process, "0x1FFFFE");  // all but to end it, which ReactOS grants all the same
    if (!onReactOs()) {
        EXPECT_EQ(terminateProcessesByPath(name, path), 0u) << "passed over";
        EXPECT_EQ(WaitForSingleObject(process, 0), DWORD{WAIT_TIMEOUT});
    }
    allow(process, "GA");
    EXPECT_EQ(terminateProcessesByPath("STOPPED instance.exe", path), DWORD{WAIT_OBJECT_0});
    DWORD exitCode = 99;
    EXPECT_EQ(WaitForSingleObject(process, 0), WAIT_OBJECT_0) << "its end was not awaited";
    EXPECT_TRUE(GetExitCodeProcess(process, &exitCode));
    EXPECT_EQ(exitCode, 0u);
    CloseHandle(process);
    CloseHandle(ready);
    DeleteFileA(path.c_str());
}

}  // namespace
