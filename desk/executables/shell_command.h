// Commands that the caller names, such as the one that signs.
#pragma once

#include <map>
#include <string>

struct CommandResult {
    bool good = false;   ///< it ended with exit code 0
    std::string output;  ///< both of its outputs
};

/// Replaces each "{key}" of `command` by its value, quoted, and has the shell run it.
CommandResult runCommand(const std::string& command,
                         const std::map<std::string, std::string>& values);
