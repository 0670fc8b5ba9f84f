#include "app/command_line.h"

#include <gtest/gtest.h>

#include "desk/computer/described_machine.h"

TEST(CommandLine, GivesBothDirectoriesOrTheFirstError) {
    const struct {
        std::vector<std::string> options;
        std::string source, install;
        std::string error = {};  ///< the message; with one, no directory counts
    } rows[] = {
        {{"-dir", "A"}, "A\\", ""},
        {{"-dir", "A\\"}, "A\\", ""},
        {{"-INSTALLDIR", "gone", "-Dir", "B"}, "B\\", "gone"},
        {{"-dir", "A", "-dir", "B", "-installdir", "C", "-installdir", "D"}, "B\\", "D"},
        {{"-dir", "-dir"}, "-dir\\", ""},
        {{"-dir"}, "", "", "Invalid command line."},
        {{"-dir", "A", "-installdir"}, "", "", "\n\nInvalid argument: Directory missing.\n"},
        {{"-installdir", "A", "-dir"}, "", "", "\n\nInvalid argument: Directory missing.\n"},
        {{"-dir", "A", "-dirs"}, "", "", "\n\nInvalid argument: -dirs\n"},
        {{"-dir", "gone", "-x", "y"}, "", "", "\n\nError accessing \"gone\"."},
        {{"-dir", "file", "-dir", "gone"}, "", "", "\n\n\"file\" is not a directory."},
    };
    DescribedMachine machine;
    machine.files["file"] = {};
    for (const char* folder : {"A", "A\\", "B", "-dir"}) {
        machine.files[folder] = {.kind = PathKind::Directory};
    }
    for (const auto& row : rows) {
        std::vector<std::string> arguments = row.options;
        arguments.insert(arguments.begin(), "C:\\Install.exe");
        CommandLine commandLine{"old", "old"};
        const std::optional<Message> error = parseCommandLine(arguments, machine, commandLine);
        EXPECT_EQ(error ? error->text : "", row.error);
        if (!error) {
            EXPECT_EQ(commandLine.sourceDirectory, row.source);
            EXPECT_EQ(commandLine.installDirectory, row.install);
        }
    }
}
