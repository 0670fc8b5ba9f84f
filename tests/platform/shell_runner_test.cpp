#include "platform/shell_runner.h"

#include <gtest/gtest.h>

#include "desk/computer/described_machine.h"

namespace {

constexpr std::uint32_t none = 0, cancelled = 1223;
constexpr char nothing[] = "(nothing)";

std::string shown(std::uint32_t result, std::uint32_t lastError) {
    const char* const text = shellFailureMessage({false, result, lastError});
    return text == nullptr ? nothing : text;
}

TEST(ShellRunner, TellsTheShellsResultElseTheLastError) {
    const struct {
        const char* start;  ///< of the message
        std::uint32_t result, lastError = none;
    } rows[] = {{nothing, 2, 2},
                {"The specified path was not found.", 3, 3},
                {"The operating system denied access", 5, 5},
                {"There was not enough memory to complete", 8},
                {"The operating system did not have enough memory", none, 8},
                {"A sharing violation", 26, 32},
                {"The file name association is incomplete", 27},
                {"The DDE transaction could not be completed because the request timed", 28},
                {"The DDE transaction failed.", 29, 1156},
                {"The DDE transaction could not be completed because other DDE", 30},
                {"There is no application associated", 31, 1155},
                {"The specified dynamic-link library", 32, 1157},
                {"Operation cancelled by user.", 33, cancelled},
                {"Unknown ShellExecute error !", none, 193},
                {"Unknown ShellExecute error !", none, 26}};
    for (const auto& [start, result, lastError] : rows) {
        if (result != none) {
            EXPECT_TRUE(shown(result, cancelled).starts_with(start)) << "result " << result;
        }
        if (lastError != none) {
            EXPECT_TRUE(shown(none, lastError).starts_with(start)) << "error " << lastError;
        }
    }
}

// The shell would say so itself where a file is missing. It looks for a program without ".exe".
TEST(ShellRunner, HandsNoMissingFileToTheShell) {
    const struct {
        const char* file;
        bool reachesTheShell;
        const char* message = "";
    } rows[] = {{"", false},
                {"C:\\there.exe", true},
                {"\"C:\\there.exe\"", true},
                {"C:\\there", true},
                {"C:\\there.exe /S", false},
                {"C:\\gone.exe", false},
                {"\"C:\\gone.exe\"", false},
                {"\\\\server\\share\\gone.exe", false},
                {"C:\\folder", true},
                {"gone.exe", true},
                {"\"C:\\there.exe\" /S", true},
                {"C:\\refused.exe", true, "Operation cancelled by user."}};
    for (const auto& row : rows) {
        for (const auto start : {launch, launchAndWait}) {
            DescribedMachine machine;
            machine.files = {{"C:\\there.exe", {}},
                             {"C:\\refused.exe", {}},
                             {"C:\\folder", {.kind = PathKind::Directory}}};
            machine.programs["C:\\refused.exe"].failure =
                StartResult{.started = false, .lastError = cancelled};
            const bool started = start(machine, row.file, "");
            const auto& steps = machine.steps;
            const bool reached = !steps.empty() && steps[0].kind != RunStep::Kind::Dialog;
            EXPECT_EQ(reached, row.reachesTheShell) << row.file;
            EXPECT_EQ(started, reached && steps[0].succeeded) << row.file;
            const ShownDialog shown = steps.size() == 2 ? steps[1].dialog : ShownDialog();
            EXPECT_EQ(shown.texts.empty() ? "" : shown.texts[0], row.message) << row.file;
            EXPECT_EQ(shown.title, *row.message == '\0' ? "" : "Error");
        }
    }
}

}  // namespace
