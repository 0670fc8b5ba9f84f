#include <windows.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "platform/runtime/end_process_win.h"

namespace {

struct Ending {
    DWORD exception = 0;  ///< the last one raised that a program may not go on from
    DWORD exitCode = 0;
};

/// Runs a program as a debugger that lets it go on all the same.
Ending endingOf(std::string commandLine) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE,
                               DEBUG_ONLY_THIS_PROCESS, nullptr, nullptr, &startup, &process));
    Ending ending;
    DEBUG_EVENT event{};
    while (event.dwDebugEventCode != EXIT_PROCESS_DEBUG_EVENT && WaitForDebugEvent(&event, 30000)) {
        const EXCEPTION_RECORD& record = event.u.Exception.ExceptionRecord;
        if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT &&
            record.ExceptionFlags == EXCEPTION_NONCONTINUABLE) {
            ending.exception = record.ExceptionCode;
        }
        ContinueDebugEvent(event.dwProcessId, event.dwThreadId, DBG_CONTINUE);
    }
    EXPECT_EQ(WaitForSingleObject(process.hProcess, 30000), WAIT_OBJECT_0);
    GetExitCodeProcess(process.hProcess, &ending.exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return ending;
}

TEST(FatalError, IsRaisedAndEndsTheProcess) {
    const std::pair<const char*, DWORD> table[] = {{"", 0},
                                                   {"overflow", statusStackBufferOverrun},
                                                   {"range", statusAssertionFailure},
                                                   {"length", statusAssertionFailure},
                                                   {"memory", statusNoMemory}};
    const std::string own = _pgmptr;
    const std::string sample = own.substr(0, own.rfind('\\')) + "\\fatal_error_sample.exe";
    for (const auto& [way, status] : table) {
        const Ending ending = endingOf('"' + sample + "\" " + way);
        EXPECT_EQ(ending.exception, status) << way;
        EXPECT_EQ(ending.exitCode, status) << way;
    }
}

}  // namespace
