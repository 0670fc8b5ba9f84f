#pragma once

#include <string>
#include <string_view>

/// One installed version, as its entry in the platform's uninstall list describes it.
struct InstalledProduct {
    std::string displayName;
    std::string uninstallString;  ///< command line of the uninstaller, not parsed
    std::string installLocation;  ///< at most 259 characters
};

/// Whether an installed version is reported: its text keeps the four-field rule and its first
/// number is above 10.
[[nodiscard]] bool isReportedVersion(std::string_view displayVersion);
