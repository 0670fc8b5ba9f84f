#include "platform/shell_runner_win.h"

#include <objbase.h>

#include "platform/system_library_win.h"

namespace {

constexpr DWORD pollInterval = 200;  // milliseconds

#ifndef _WIN64
static_assert(sizeof(SHELLEXECUTEINFOA) == 60);
#endif

/// The shell hands a start on to extensions that are COM objects. Not earlier than the first start,
/// so that no dialog waits for it; never undone, as the process ends soon after its last start.
void initializeCom() {
    using Initialize = HRESULT(WINAPI*)(void*, DWORD);
    static const auto initialize =
        procedureAddress<Initialize>(loadSystemLibrary("ole32.dll"), "CoInitializeEx");
    if (initialize != nullptr) {  // at later starts it changes nothing
        initialize(nullptr, COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE);
    }
}

void discardMessages(UINT first, UINT last) {
    MSG message;
    while (PeekMessageA(&message, nullptr, first, last, PM_REMOVE)) {
    }
}

}  // namespace

ShellRunner::ShellRunner(HWND owner) {
    execution.cbSize = sizeof execution;
    execution.fMask = SEE_MASK_NOCLOSEPROCESS;
    execution.hwnd = owner;
    execution.lpDirectory = "";
    execution.nShow = SW_SHOWNORMAL;
}

HANDLE ShellRunner::start(const char* file, const char* parameters, const char* verb) {
    exitCode = 0;
    execution.lpVerb = verb;
    execution.lpFile = file;
    execution.lpParameters = parameters != nullptr && *parameters != '\0' ? parameters : nullptr;
    initializeCom();
    const InheritableLibrarySearch search;
    result.started = ShellExecuteExA(&execution) != FALSE;
    result.lastError = GetLastError();
    result.instance = reinterpret_cast<std::uintptr_t>(execution.hInstApp);
    return result.started ? execution.hProcess : nullptr;
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
    // Input that waits for the thread, posted messages of these kinds included, would go to a
    // window that the user had not seen then. All else stays but WM_QUIT, which nothing here posts.
    discardMessages(WM_KEYFIRST, WM_KEYLAST);
    discardMessages(WM_MOUSEFIRST, WM_MOUSELAST);
    discardMessages(WM_NCMOUSEMOVE, WM_NCXBUTTONDBLCLK);
    return true;
}
