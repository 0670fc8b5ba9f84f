// The edition that is installed directly: what its older versions are replaced by.
#pragma once

#include "installed/installed_product.h"

/// In the source directory; takes the place of an old viewer's uninstaller.
inline constexpr const char* replacementUninstallerFile = "UninstallQmx.exe";

/// What removes an installed viewer: its uninstall command, or in its place the uninstaller of the
/// media, copied.
struct ViewerRemoval {
    std::string program;
    std::string arguments;   ///< may be empty
    bool runsSetup = false;  ///< the product's own setup program, cut from its arguments
    // Empty unless the command runs the setup program. Where the copy fails the command stands.
    std::string copyFrom;  ///< at most 260 characters
    std::string copyTo;    ///< beside the setup program, without quotes
};

/// Cuts a command that runs "setup.exe" (of any letter case) behind the name and the character
/// after it, a closing quote, and leaves out the next one, a blank. Kept: neither is looked at,
/// the uninstall lists in the field hold what installers of many years wrote. Any other command
/// is the program as a whole. `sourceDirectory` ends in a backslash.
[[nodiscard]] ViewerRemoval planViewerRemoval(const std::string& uninstallCommand,
                                              const std::string& sourceDirectory);

/// The viewers to remove, in order. Discovery also finds names that only contain a viewer's: nobody
/// is asked, so a product that is not exactly a viewer is left alone.
[[nodiscard]] std::vector<InstalledProduct> installedViewers(const KeyReader& localMachine);
