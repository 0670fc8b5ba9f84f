#include "app/command_line.h"

#include <gtest/gtest.h>

namespace {

PathKind examine(const std::string& path) {
    if (path.find("file") != std::string::npos) {
        return PathKind::File;
    }
    return path.find("gone") != std::string::npos ? PathKind::Inaccessible : PathKind::Directory;
}

std::optional<Message> parse(std::vector<std::string> arguments, CommandLine& commandLine) {
    arguments.insert(arguments.begin(), "C:\\installer.exe");
    return parseCommandLine(arguments, examine, commandLine);
}

TEST(CommandLine, ReadsBothDirectories) {
    struct {
        std::vector<std::string> arguments;
        std::string source, install;
    } const cases[] = {
        {{"-dir", "C:\\media"}, "C:\\media\\", ""},
        {{"-dir", "C:\\media\\"}, "C:\\media\\", ""},
        {{"-INSTALLDIR", "X gone", "-Dir", "Y"}, "Y\\", "X gone"},
        {{"-dir", "A", "-dir", "B", "-installdir", "C", "-installdir", "D"}, "B\\", "D"},
        {{"-dir", "-dir"}, "-dir\\", ""},
    };
    for (const auto& row : cases) {
        CommandLine commandLine{"old", "old"};
        EXPECT_FALSE(parse(row.arguments, commandLine));
        EXPECT_EQ(commandLine.sourceDirectory, row.source);
        EXPECT_EQ(commandLine.installDirectory, row.install);
    }
}

TEST(CommandLine, ReportsTheFirstError) {
    struct {
        std::vector<std::string> arguments;
        MessageIcon icon;
        std::string text;
    } const cases[] = {
        {{}, MessageIcon::Warning, "Invalid command line."},
        {{"-dir"}, MessageIcon::Warning, "Invalid command line."},
        {{"-dir", "A", "-installdir"},
         MessageIcon::Error,
         "\n\nInvalid argument: Directory missing.\n"},
        {{"-installdir", "A", "-dir"},
         MessageIcon::Error,
         "\n\nInvalid argument: Directory missing.\n"},
        {{"-dir", "A", "-dirs"}, MessageIcon::Error, "\n\nInvalid argument: -dirs\n"},
        {{"-dire", "gone"}, MessageIcon::Error, "\n\nInvalid argument: -dire\n"},
        {{"-dir", "gone", "-x", "y"}, MessageIcon::Error, "\n\nError accessing \"gone\"."},
        {{"-dir", "a file"}, MessageIcon::Error, "\n\n\"a file\" is not a directory."},
        {{"-installdir", "A", "-installdir", "B"},
         MessageIcon::Error,
         "\n\nMissing directory argument."},
    };
    for (const auto& row : cases) {
        CommandLine commandLine;
        const std::optional<Message> error = parse(row.arguments, commandLine);
        ASSERT_TRUE(error) << row.text;
        EXPECT_EQ(error->text, row.text);
        EXPECT_EQ(error->icon, row.icon);
        EXPECT_EQ(error->buttons, MessageButtons::Ok);
    }
}

}  // namespace
