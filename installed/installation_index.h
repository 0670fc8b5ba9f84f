// Questions to a list of installation records, and how lists become one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "installed/installation_record.h"

// The maker's registry trees, below HKEY_LOCAL_MACHINE; the older one is that of an earlier
// generation of installers.
inline constexpr char makerTree[] = "Software\\Halvick Test Equipment\\";
inline constexpr char olderMakerTree[] = "Software\\HVQ\\Tressle Analyzer\\";

/// Which field a search compares. Any other number compares none.
namespace installation_selector {
inline constexpr int path = 0;  ///< backslashes at both ends do not count
inline constexpr int productId = 1;
inline constexpr int productName = 2;
inline constexpr int programFolder = 3;
inline constexpr int temporaryReference = 5;
}  // namespace installation_selector

/// Appends the records whose "Registry Key" (letter case ignored) is not in the list yet: of two
/// records of one key the first stays.
void mergeInstallations(std::vector<InstallationRecord>& installations,
                        const std::vector<InstallationRecord>& records);

/// The field of this name (letter case ignored); empty when it is not one that may be asked for.
[[nodiscard]] std::string installationField(const InstallationRecord& record,
                                            std::string_view name);

/// Puts the positions of the records whose selected field equals `value` (letter case ignored)
/// into `matches`, last first. Returns whether there are any.
[[nodiscard]] bool findInstallations(const std::vector<InstallationRecord>& installations,
                                     std::string_view value, int selector,
                                     std::vector<std::size_t>& matches);
