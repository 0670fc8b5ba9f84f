#include "app/command_line.h"

#include <gtest/gtest.h>

TEST(CommandLine, ReadsBothDirectoriesOrReportsTheFirstError) {
    struct {
        std::vector<std::string> arguments;
        const char *source, *install, *error;  ///< the error null: accepted
    } const cases[] = {
        {{"-dir", "C:\\media"}, "C:\\media\\", "", nullptr},
        {{"-dir", "C:\\media\\"}, "C:\\media\\", "", nullptr},
        {{"-INSTALLDIR", "X gone", "-Dir", "Y"}, "Y\\", "X gone", nullptr},
        {{"-dir", "A", "-dir", "B", "-installdir", "C", "-installdir", "D"}, "B\\", "D", nullptr},
        {{"-dir", "-dir"}, "-dir\\", "", nullptr},
        {{}, "", "", "Invalid command line."},
        {{"-dir"}, "", "", "Invalid command line."},
        {{"-dir", "A", "-installdir"}, "", "", "\n\nInvalid argument: Directory missing.\n"},
        {{"-installdir", "A", "-dir"}, "", "", "\n\nInvalid argument: Directory missing.\n"},
        {{"-dir", "A", "-dirs"}, "", "", "\n\nInvalid argument: -dirs\n"},
        {{"-dire", "gone"}, "", "", "\n\nInvalid argument: -dire\n"},
        {{"-dir", "gone", "-x", "y"}, "", "", "\n\nError accessing \"gone\"."},
        {{"-dir", "a file"}, "", "", "\n\n\"a file\" is not a directory."},
        {{"-installdir", "A", "-installdir", "B"}, "", "", "\n\nMissing directory argument."},
    };
    for (const auto& row : cases) {
        std::vector<std::string> arguments = row.arguments;
        arguments.insert(arguments.begin(), "C:\\installer.exe");
        CommandLine commandLine{"old", "old"};
        const std::optional<Message> error = parseCommandLine(
            arguments,
            [](const std::string& path) {
                return path == "a file" ? PathKind::File
                       : path == "gone" ? PathKind::Inaccessible
                                        : PathKind::Directory;
            },
            commandLine);
        ASSERT_EQ(error.has_value(), row.error != nullptr);
        if (error) {
            EXPECT_EQ(error->text, row.error);
            EXPECT_EQ(error->icon,
                      arguments.size() < 3 ? MessageIcon::Warning : MessageIcon::Error);
            EXPECT_EQ(error->buttons, MessageButtons::Ok);
        } else {
            EXPECT_EQ(commandLine.sourceDirectory, row.source);
            EXPECT_EQ(commandLine.installDirectory, row.install);
        }
    }
}
