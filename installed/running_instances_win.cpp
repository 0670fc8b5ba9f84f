#include "installed/running_instances_win.h"

#include <windows.h>

#include <tlhelp32.h>

#include "platform/ansi_text.h"
#include "platform/handle_win.h"

namespace {

constexpr DWORD endTimeout = 5000;  // milliseconds
constexpr int snapshotAttempts = 10;

#ifndef _WIN64
static_assert(sizeof(PROCESSENTRY32) == 296 && sizeof(MODULEENTRY32) == 548);
#endif

/// Sets `result` when the process was stopped. Kept: one that cannot be stopped is passed over
/// silently, for the uninstaller to report; its handle stays open.
void stopProcess(DWORD processId, DWORD& result) {
    const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, processId);
    // Kept: a failed open is null, which makes the termination fail.
    if (process != INVALID_HANDLE_VALUE && TerminateProcess(process, 0)) {
        result = WaitForSingleObject(process, endTimeout);
        CloseHandle(process);
    }
}

void stopProcessWithModule(DWORD processId, const std::string& path, DWORD& result) {
    // A process that is loading or unloading just then is to be asked again.
    KernelHandle modules;
    int attempt = 0;
    do {
        modules.reset(CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, processId));
    } while (!modules && GetLastError() == ERROR_BAD_LENGTH && ++attempt < snapshotAttempts);
    // Kept: not checked; without a snapshot the walk has no first module.
    MODULEENTRY32 module;
    module.dwSize = sizeof module;
    for (BOOL more = Module32First(modules.get(), &module); more;
         more = Module32Next(modules.get(), &module)) {
        if (equalIgnoringCase(module.szExePath, path)) {
            stopProcess(processId, result);
        }
    }
}

}  // namespace

unsigned long terminateProcessesByPath(const std::string& executableName,
                                       const std::string& executablePath) {
    if (executableName.empty() || executablePath.empty()) {
        return 0;
    }
    const KernelHandle processes(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    if (!processes) {
        return GetLastError();
    }
    DWORD result = WAIT_OBJECT_0;
    PROCESSENTRY32 process;
    process.dwSize = sizeof process;
    for (BOOL more = Process32First(processes.get(), &process); more;
         more = Process32Next(processes.get(), &process)) {
        if (equalIgnoringCase(process.szExeFile, executableName)) {
            stopProcessWithModule(process.th32ProcessID, executablePath, result);
        }
    }
    return result;
}
