#include "platform/shell_runner_win.h"

#include "platform/shell_runner.h"

namespace {

constexpr DWORD pollInterval = 200;  // milliseconds

#ifndef _WIN64
static_assert(sizeof(SHELLEXECUTEINFOA) == 60);
#endif

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
    if (ShellExecuteExA(&execution)) {
        return execution.hProcess;
    }
    const DWORD error = GetLastError();
    const char* message =
        shellFailureMessage(reinterpret_cast<std::uintptr_t>(execution.hInstApp), error);
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
    exitCode = 0;
    bool active = false;
    do {
        GetExitCodeProcess(process, &exitCode);
        active = exitCode == STILL_ACTIVE;
        // Kept: also after the last query, so that every run lasts at least one interval.
        Sleep(pollInterval);
    } while (active);
    execution.fMask = SEE_MASK_NOCLOSEPROCESS;
    return true;
}
