// Commands that the caller names, such as the one that signs.
#pragma once

#include <map>
#include <string>

struct CommandResult {
    int exitCode = -1;   ///< -1: it was ended, or never started
    std::string output;  ///< both of its outputs
};

/// Replaces each "{key}" of `command` by its value, quoted, and has the shell run it.
CommandResult runCommand(std::string command, const std::map<std::string, std::string>& values);
