#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/computer.h"

/// The two directories that the installer is started with.
struct CommandLine {
    std::string sourceDirectory;   ///< "-dir"; ends in a backslash
    std::string installDirectory;  ///< "-installdir" as given, unchecked; may be empty
};

/// Reads `arguments`, the program's path first, into `commandLine`; a "-dir" value is looked up on
/// `computer`. The first error ends the reading and is returned.
[[nodiscard]] std::optional<Message> parseCommandLine(const std::vector<std::string>& arguments,
                                                      Computer& computer, CommandLine& commandLine);
