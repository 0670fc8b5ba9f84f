#pragma once

#include <windows.h>

/// Ends the process with `status`, one of winnt.h's, as its exit code; nothing of the program runs
/// any more, since its memory can no longer be relied on. Raised as an exception first, for a
/// debugger and for Windows' own record of crashes.
[[noreturn]] inline void endProcess(DWORD status) {
    RaiseException(status, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    TerminateProcess(GetCurrentProcess(), status);
    __builtin_trap();
}
