#include "platform/shell_runner.h"

#include "desk/computer/described_machine.h"
#include "tests/rows.h"

constexpr std::uint32_t none = 0, cancelled = 1223;
constexpr char nothing[] = "(nothing)";

TEST(ShellRunner, TellsTheShellsResultElseTheLastError) {
    // How each message starts, by the shell's result and by the last error.
    const std::tuple<const char*, std::uint32_t, std::uint32_t> rows[] = {
        {nothing, 2, 2},
        {"The specified path was not found.", 3, 3},
        {"The operating system denied access", 5, 5},
        {"There was not enough memory to complete", 8, none},
        {"The operating system did not have enough memory", none, 8},
        {"A sharing violation", 26, 32},
        {"The file name association is incomplete", 27, none},
        {"The DDE transaction could not be completed because the request timed", 28, none},
        {"The DDE transaction failed.", 29, 1156},
        {"The DDE transaction could not be completed because other DDE", 30, none},
        {"There is no application associated", 31, 1155},
        {"The specified dynamic-link library", 32, 1157},
        {"Operation cancelled by user.", 33, cancelled},
        {"Unknown ShellExecute error !", none, 193},
        {"Unknown ShellExecute error !", none, 26},
        {"Unknown ShellExecute error !", none, 1}};
    const auto shown = [](std::uint32_t result, std::uint32_t lastError) -> std::string {
        const char* const text = shellFailureMessage({false, result, lastError});
        return text == nullptr ? nothing : text;
    };
    EXPECT_EQ(shown(none, none), "Unknown ShellExecute error !");
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
    for (const auto start : {launch, launchAndWait}) {
        expectRows<std::string, std::string>(
            {{"", ""},
             {"C:\\there.exe", "shell, started"},
             {"\"C:\\there.exe\"", "shell, started"},
             {"C:\\there", "shell, started"},
             {"C:\\there.exe /S", ""},
             {"C:\\gone.exe", ""},
             {"\"C:\\gone.exe\"", ""},
             {"\\\\server\\share\\gone.exe", ""},
             {"C:\\folder", "shell, "},
             {"gone.exe", "shell, "},
             {"\"C:\\there.exe\" /S", "shell, "},
             {"C:\\refused.exe", "shell, Error: Operation cancelled by user."}},
            [start](const std::string& file) {
                DescribedMachine machine;
                machine.files = {{"C:\\there.exe", {}},
                                 {"C:\\refused.exe", {}},
                                 {"C:\\folder", {.kind = PathKind::Directory}}};
                machine.programs["C:\\refused.exe"].failure =
                    StartResult{.started = false, .lastError = cancelled};
                const bool started = start(machine, file, "");
                std::string seen;
                for (const RunStep& step : machine.steps) {
                    seen += step.kind == RunStep::Kind::Dialog
                                ? step.dialog.title + ": " + step.dialog.texts[0]
                                : "shell, ";
                }
                return seen + (started ? "started" : "");
            });
    }
}
