#include <windows.h>

#include <gtest/gtest.h>
#include <process.h>

#include <cstdlib>
#include <string>

TEST(FatalError, IsRaisedAndEndsTheProcess) {
    const std::pair<const char*, DWORD> table[] = {{"sound", 0},
                                                   {"overflow", STATUS_STACK_BUFFER_OVERRUN},
                                                   {"range", STATUS_ASSERTION_FAILURE},
                                                   {"length", STATUS_ASSERTION_FAILURE},
                                                   {"memory", STATUS_NO_MEMORY},
                                                   {"raise", STATUS_NO_MEMORY + 1}};
    const std::string own = _pgmptr;
    const std::string sample = own.substr(0, own.rfind('\\')) + "\\fatal_error_sample.exe";
    SetErrorMode(SEM_NOGPFAULTERRORBOX);  // is inherited: nobody is there to close the box
    for (const auto& [way, exitCode] : table) {
        EXPECT_EQ(static_cast<DWORD>(_spawnl(_P_WAIT, sample.c_str(), "sample", way, nullptr)),
                  exitCode)
            << way;
    }
}
