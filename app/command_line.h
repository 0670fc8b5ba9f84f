#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/message.h"

/// What the file system has under a path.
enum class PathKind { Inaccessible, File, Directory };

/// The two directories that the installer is started with.
struct CommandLine {
    std::string sourceDirectory;   ///< "-dir"; ends in a backslash
    std::string installDirectory;  ///< "-installdir" as given, unchecked; may be empty
};

/// Reads `arguments`, the program's path first, into `commandLine`; `examine` looks a "-dir" value
/// up. The first error ends the reading and is returned.
std::optional<Message> parseCommandLine(const std::vector<std::string>& arguments,
                                        PathKind (*examine)(const std::string& path),
                                        CommandLine& commandLine);
