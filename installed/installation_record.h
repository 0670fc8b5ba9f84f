#pragma once

#include <array>
#include <map>
#include <string>

/// Texts by name; letter case counts.
using FieldMap = std::map<std::string, std::string, std::less<>>;

/// One installation, as the products record it in the maker's registry tree.
struct InstallationRecord {
    /// Has every known field, empty.
    InstallationRecord();

    bool legacy = false;            ///< read from the older tree
    std::string executableVersion;  ///< the analyser's file version, when it could be read
    FieldMap fields;                ///< by value name
};

/// Where installations of the older tree keep their user data key.
inline constexpr std::string_view oldUserDataKey = "Old User Data Key";

/// The field's text; empty when there is no such field. Points into `fields`.
[[nodiscard]] std::string_view fieldText(const FieldMap& fields, std::string_view name);

/// Whether the record says enough to be an installation: what it is, and one place where it is.
[[nodiscard]] bool isValid(const InstallationRecord& record);

/// Sets the record's field of this name, or else the extra value.
void storeValue(InstallationRecord& record, FieldMap& extras, std::string_view name,
                std::string_view text);

/// Where the analyser is within an installation of any product.
namespace analyser {
inline constexpr char program[] = "qmx.exe";
/// Relative to the install location.
inline constexpr char path[] = "Executables\\Core\\qmx.exe";
/// Relative to the "Path" of installations that the older generation of installers made.
inline constexpr char olderPath[] = "bin\\release\\qmx.exe";
}  // namespace analyser

/// Where the installation's analyser executable can be, the likelier place first.
[[nodiscard]] std::array<std::string, 2> analyserPaths(const InstallationRecord& record);

/// What follows the last character that is neither a digit nor a point: "Version 12.4.1" gives
/// "12.4.1".
[[nodiscard]] std::string_view versionPart(std::string_view fileVersion);
