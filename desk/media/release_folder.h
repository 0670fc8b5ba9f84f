// A folder of released installers: CODE/Install.exe for each product, their checksums, their bill
// of materials.
#pragma once

#include <string>

inline constexpr const char* checksumsFile = "SHA256SUMS";  ///< as sha256sum writes and reads it
inline constexpr const char* billOfMaterialsFile = "installers.cdx.json";
inline constexpr const char* installerFile = "Install.exe";

/// Folder of a product in a release and among media: its code in lower case.
[[nodiscard]] std::string folderOf(const std::string& code);

/// Path of a product's installer within a release.
[[nodiscard]] std::string releasedPath(const std::string& code);

/// Throws Refusal when there is something else in the folder than an earlier release.
void requireReplaceable(const std::string& folder);
