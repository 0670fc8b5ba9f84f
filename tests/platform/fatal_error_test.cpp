#include <gtest/gtest.h>

#include "platform/runtime/end_process.h"
#include "platform/shell_runner.h"

namespace {

TEST(FatalError, EndsTheProcessAtOnceWithItsCause) {
    struct {
        const char* way;
        DWORD exitCode;
    } const cases[] = {
        {"", 0},
        {"overflow", statusStackBufferOverrun},
        {"range", statusAssertionFailure},
        {"length", statusAssertionFailure},
        {"memory", statusNoMemory},
    };
    char sample[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, sample, sizeof sample);
    const std::string folder(sample, std::string(sample).rfind('\\') + 1);
    const std::string path = folder + "fatal_error_sample.exe";
    for (const auto& row : cases) {
        ShellRunner runner;
        ASSERT_TRUE(runner.runAndWait(path.c_str(), row.way, "open"));
        EXPECT_EQ(runner.exitCode, row.exitCode) << row.way;
    }
}

}  // namespace
