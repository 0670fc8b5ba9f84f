#pragma once

#include <string>

/// One installed version, as its entry in the platform's uninstall list describes it.
struct InstalledProduct {
    std::string displayName;
    std::string uninstallString;  ///< command line of the uninstaller, not parsed
    std::string installLocation;  ///< at most 259 characters
};
