#include "platform/shell_runner.h"

#include <gtest/gtest.h>

#include "desk/computer/described_machine.h"

namespace {

constexpr std::uint32_t none = 0, cancelled = 1223;

TEST(ShellRunner, TellsTheShellsResultElseTheLastError) {
    const struct {
        std::uintptr_t instance;
        std::uint32_t lastError;
        const char* start;  ///< of the message; empty: none is shown
    } rows[] = {
        {2, cancelled, ""},
        {3, cancelled, "The specified path was not found."},
        {5, cancelled, "The operating system denied access"},
        {8, cancelled, "There was not enough memory to complete"},
        {26, cancelled, "A sharing violation"},
        {27, cancelled, "The file name association is incomplete"},
        {28, cancelled, "The DDE transaction could not be completed because the request timed"},
        {29, cancelled, "The DDE transaction failed."},
        {30, cancelled, "The DDE transaction could not be completed because other DDE"},
        {31, cancelled, "There is no application associated"},
        {32, cancelled, "The specified dynamic-link library"},
        {0, cancelled, "Operation cancelled by user."},
        {33, cancelled, "Operation cancelled by user."},
        {none, 2, ""},
        {none, 3, "The specified path was not found."},
        {none, 5, "The operating system denied access"},
        {none, 8, "The operating system did not have enough memory"},
        {none, 32, "A sharing violation"},
        {none, 1155, "There is no application associated"},
        {none, 1156, "The DDE transaction failed."},
        {none, 1157, "The specified dynamic-link library"},
        {none, 193, "Unknown ShellExecute error !"},
        {none, 26, "Unknown ShellExecute error !"},
    };
    for (const auto& row : rows) {
        const char* const text = shellFailureMessage({false, row.instance, row.lastError});
        const std::string shown = text == nullptr ? "" : text;
        EXPECT_TRUE(shown.starts_with(row.start) && shown.empty() == (*row.start == '\0'))
            << "result " << row.instance << ", error " << row.lastError << ": " << shown;
    }
}

// The shell would say so itself where a file is missing.
TEST(ShellRunner, HandsNoMissingFileToTheShell) {
    const struct {
        const char* file;
        bool handedOver;
        const char* message = "";
    } rows[] = {{"", false},
                {"C:\\there.exe", true},
                {"\"C:\\there.exe\"", true},
                {"C:\\there.exe /S", false},
                {"C:\\gone.exe", false},
                {"\"C:\\gone.exe\"", false},
                {"\\\\server\\share\\gone.exe", false},
                {"C:\\folder", false},
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
            start(machine, row.file, "");
            const auto& steps = machine.steps;
            EXPECT_EQ(!steps.empty() && steps[0].kind != RunStep::Kind::Dialog, row.handedOver)
                << row.file;
            const ShownDialog shown = steps.size() == 2 ? steps[1].dialog : ShownDialog();
            EXPECT_EQ(shown.texts.empty() ? "" : shown.texts[0], row.message) << row.file;
            EXPECT_EQ(shown.title, *row.message == '\0' ? "" : "Error");
        }
    }
}

}  // namespace
