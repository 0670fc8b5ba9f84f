#include "app/command_line.h"

#include "platform/ansi_text.h"

namespace {

// The line breaks in front are kept: support's scripts compare the whole text.
Message invalid(const std::string& text) {
    return {"\n\n" + text, MessageIcon::Error};
}

}  // namespace

std::optional<Message> parseCommandLine(const std::vector<std::string>& arguments,
                                        Computer& computer, std::string& sourceDirectory,
                                        std::string& installDirectory) {
    sourceDirectory.clear();
    installDirectory.clear();
    if (arguments.size() < 3) {
        return Message{"Invalid command line."};
    }
    for (std::size_t index = 1; index < arguments.size(); index += 2) {
        const std::string& option = arguments[index];
        const bool isSource = equalIgnoringCase(option, "-dir");
        if (!isSource && !equalIgnoringCase(option, "-installdir")) {
            return invalid("Invalid argument: " + option + "\n");
        }
        if (index + 1 == arguments.size()) {
            return invalid("Invalid argument: Directory missing.\n");
        }
        const std::string& value = arguments[index + 1];
        if (!isSource) {
            installDirectory = value;
            continue;
        }
        switch (computer.pathKind(value)) {
            case PathKind::Inaccessible:
                return invalid("Error accessing \"" + value + "\".");
            case PathKind::File:
                return invalid("\"" + value + "\" is not a directory.");
            case PathKind::Directory:
                sourceDirectory = withTrailingBackslash(value);
        }
    }
    if (sourceDirectory.empty()) {
        return invalid("Missing directory argument.");
    }
    return std::nullopt;
}
