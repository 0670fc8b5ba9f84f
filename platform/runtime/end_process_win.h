#pragma once

#include <windows.h>

// Mirror ntstatus.h, so that crash records name the cause.
inline constexpr DWORD statusNoMemory = 0xC0000017;
inline constexpr DWORD statusStackBufferOverrun = 0xC0000409;
inline constexpr DWORD statusAssertionFailure = 0xC0000420;

/// Ends the process with `status` as its exit code; nothing of the program runs any more, since
/// its memory can no longer be relied on. Raised as an exception first, for a debugger and for
/// Windows' own record of crashes.
[[noreturn]] inline void endProcess(DWORD status) {
    RaiseException(status, EXCEPTION_NONCONTINUABLE, 0, nullptr);
    TerminateProcess(GetCurrentProcess(), status);
    __builtin_trap();
}
