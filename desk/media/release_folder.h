// A folder of released installers: CODE/Install.exe for each product, a bill of materials, the
// notices of third parties, and the checksums of all of them.
#pragma once

#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "desk/executables/signature.h"
#include "desk/media/manifest.h"

inline constexpr const char* billOfMaterialsFile = "installers.cdx.json";
inline constexpr const char* noticesFile = "THIRD-PARTY-NOTICES.txt";
inline constexpr const char* installerFile = "Install.exe";

/// Folder of a product in a release and among media: its code in lower case.
[[nodiscard]] std::string folderOf(const std::string& code);

/// Path of a product's installer within a release.
[[nodiscard]] std::string releasedPath(const std::string& code);

struct ReleaseReport {
    std::size_t installers = 0;
    std::size_t signatures = 0;
    std::set<std::string> signers;  ///< in words, each once
    std::string build;              ///< that the version resources show, when it is one
    std::vector<FileProblem> problems;
};

/// Looks at checksums, stamps, builds, bill of materials, protections and signatures. `build` is
/// what the version resources must show; empty: any, but all the same.
[[nodiscard]] ReleaseReport examineRelease(const std::filesystem::path& folder,
                                           const std::string& build,
                                           const SignatureChoices& choices);
