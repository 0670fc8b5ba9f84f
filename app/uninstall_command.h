// The command line with which an installed viewer is removed.
#pragma once

#include <string>

struct UninstallCommand {
    std::string program;
    std::string arguments;   ///< may be empty
    bool runsSetup = false;  ///< the product's own setup program, cut from its arguments
};

/// Cuts a command that runs "setup.exe" (of any letter case) behind the name and the character
/// after it, a closing quote, and leaves out the next one, a blank. Kept: neither is looked at,
/// the uninstall lists in the field hold what installers of many years wrote. Any other command
/// is the program as a whole.
UninstallCommand cutUninstallCommand(const std::string& command);

/// Where the uninstaller that replaces the setup program of `command` (runsSetup) is copied:
/// beside it, without quotes.
std::string uninstallerTarget(const UninstallCommand& command);
