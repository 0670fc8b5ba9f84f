#pragma once

#include <string>
#include <string_view>

/// One installed version, as its entry in the platform's uninstall list describes it.
struct InstalledProduct {
    std::string displayName;
    std::string uninstallString;  ///< command line of the uninstaller, not parsed
    std::string installLocation;  ///< at most 259 characters
};

/// Below HKEY_LOCAL_MACHINE, in the program's own registry view: the products' installers are
/// 32-bit programs too.
inline constexpr char uninstallListKey[] =
    "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";

/// Part of the display names of all products of the maker.
inline constexpr char makerFilter[] = "Halvick";

/// Whether an installed version is reported: its text keeps the four-field rule and its first
/// number is above 10.
[[nodiscard]] bool isReportedVersion(std::string_view displayVersion);

/// Reads an entry of the uninstall list through `readText`, which takes a value's name and fills a
/// text, or says false. False for an entry that is not to be reported: its display name does not
/// contain `filter` (case-sensitive), its version is too old, or a text is missing.
template <class ReadText>
[[nodiscard]] bool readInstalledProduct(ReadText readText, std::string_view filter,
                                        InstalledProduct& product) {
    std::string displayVersion;
    return readText("DisplayName", product.displayName) &&
           product.displayName.find(filter) != std::string::npos &&
           readText("DisplayVersion", displayVersion) && isReportedVersion(displayVersion) &&
           readText("UninstallString", product.uninstallString) &&
           readText("InstallLocation", product.installLocation);
}
