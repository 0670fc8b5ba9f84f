#include "app/command_line.h"

#include <sstream>

#include "tests/rows.h"

namespace {

/// Both directories, else the last word of the message.
std::string outcome(const std::string& options) {
    std::vector<std::string> arguments = {"C:\\installer.exe"};
    std::istringstream rest(options);
    for (std::string argument; std::getline(rest, argument, '|');) {
        arguments.push_back(argument);
    }
    CommandLine commandLine{"old", "old"};
    const auto examine = [](const std::string& path) {
        return path == "file"   ? PathKind::File
               : path == "gone" ? PathKind::Inaccessible
                                : PathKind::Directory;
    };
    const std::optional<Message> error = parseCommandLine(arguments, examine, commandLine);
    return error ? error->text.substr(error->text.rfind(' ') + 1)
                 : commandLine.sourceDirectory + ", " + commandLine.installDirectory;
}

TEST(CommandLine, GivesBothDirectoriesOrTheFirstError) {
    expectRows<std::string, std::string>({{"-dir|C:\\media", "C:\\media\\, "},
                                          {"-dir|C:\\media\\", "C:\\media\\, "},
                                          {"-INSTALLDIR|gone|-Dir|Y", "Y\\, gone"},
                                          {"-dir|A|-dir|B|-installdir|C|-installdir|D", "B\\, D"},
                                          {"-dir|-dir", "-dir\\, "},
                                          {"", "line."},
                                          {"-dir", "line."},
                                          {"-dir|A|-installdir", "missing.\n"},
                                          {"-installdir|A|-dir", "missing.\n"},
                                          {"-dir|A|-dirs", "-dirs\n"},
                                          {"-dire|gone", "-dire\n"},
                                          {"-dir|gone|-x|y", "\"gone\"."},
                                          {"-dir|file|-dir|gone", "directory."},
                                          {"-installdir|A|-installdir|B", "argument."}},
                                         outcome);
}

}  // namespace
