#include "platform/shell_runner_win.h"

#include <objbase.h>

#include "platform/shell_runner.h"
#include "platform/system_library_win.h"

namespace {

constexpr DWORD pollInterval = 200;  // milliseconds

#ifndef _WIN64
static_assert(sizeof(SHELLEXECUTEINFOA) == 60);
#endif

/// The shell hands a start on to extensions that are COM objects. Not earlier than the first start,
/// so that no dialog waits for it; never undone, as the process ends soon after its last start.
void initializeCom() {
    static bool tried = false;
    if (tried) {
        return;
    }
    tried = true;
    using Initialize = HRESULT(WINAPI*)(void*, DWORD);
    if (const auto initialize =
            procedureAddress<Initialize>(loadSystemLibrary("ole32.dll"), "CoInitializeEx")) {
        initialize(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    }
}

/// False with the Windows error code in `error`.
bool execute(SHELLEXECUTEINFOA& execution, DWORD& error) {
    initializeCom();
    const InheritableLibrarySearch search;
    const bool started = ShellExecuteExA(&execution) != FALSE;
    error = GetLastError();
    return started;
}

}  // namespace

ShellRunner::ShellRunner(HWND owner) {
    execution.cbSize = sizeof execution;
    execution.fMask = SEE_MASK_NOCLOSEPROCESS;
    execution.hwnd = owner;
    execution.lpParameters = "";
    execution.lpDirectory = "";
    execution.nShow = SW_SHOWNORMAL;
}

HANDLE ShellRunner::start(const char* file, const char* parameters, const char* verb) {
    exitCode = 0;
    if (file == nullptr) {
        return nullptr;
    }
    execution.lpVerb = verb;
    execution.lpFile = file;
    execution.lpParameters = parameters != nullptr && *parameters != '\0' ? parameters : nullptr;
    DWORD error = ERROR_SUCCESS;
    if (execute(execution, error)) {
        return execution.hProcess;
    }
    const char* message = shellFailureMessage(execution.hInstApp, error);
    if (message != nullptr) {
        MessageBoxA(nullptr, message, "Error", MB_OK | MB_ICONEXCLAMATION);
    }
    return nullptr;
}

bool ShellRunner::runAndWait(const char* file, const char* parameters, const char* verb) {
    // Kept: after a failed start the flag stays, and the object's later runs have it too.
    execution.fMask |= SEE_MASK_NOASYNC;
    const HANDLE process = start(file, parameters, verb);
    if (process == nullptr) {
        return false;
    }
    do {
        GetExitCodeProcess(process, &exitCode);
        // Kept: also after the last query, so that every run lasts at least one interval.
        Sleep(pollInterval);
    } while (exitCode == STILL_ACTIVE);
    execution.fMask = SEE_MASK_NOCLOSEPROCESS;
    return true;
}
