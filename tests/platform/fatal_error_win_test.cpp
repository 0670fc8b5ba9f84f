#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/runtime/end_process_win.h"
#include "platform/shell_runner_win.h"

namespace {

TEST(FatalError, EndsTheProcessAtOnceWithItsCause) {
    const std::pair<const char*, DWORD> table[] = {{"", 0},
                                                   {"overflow", statusStackBufferOverrun},
                                                   {"range", statusAssertionFailure},
                                                   {"length", statusAssertionFailure},
                                                   {"memory", statusNoMemory}};
    const std::string own = _pgmptr;
    const std::string sample = own.substr(0, own.rfind('\\')) + "\\fatal_error_sample.exe";
    for (const auto& [way, exitCode] : table) {
        ShellRunner runner;
        runner.runAndWait(sample.c_str(), way, "open");
        EXPECT_EQ(runner.exitCode, exitCode) << way;
    }
}

}  // namespace
