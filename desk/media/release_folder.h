// A folder of released installers: CODE/Install.exe for each product, a bill of materials, the
// notices of third parties, and the checksums of all of them.
#pragma once

#include <string>
#include <vector>

#include "desk/executables/signature.h"
#include "desk/media/manifest.h"

inline constexpr const char* billOfMaterialsFile = "installers.cdx.json";
inline constexpr const char* noticesFile = "THIRD-PARTY-NOTICES.txt";
inline constexpr const char* installerFile = "Install.exe";

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
[[nodiscard]] ReleaseReport examineRelease(const fs::path& folder, const std::string& build,
                                           const SignatureChoices& choices);

/// The software bill of materials, CycloneDX 1.5: each executable of a release and the libraries
/// that are linked into it. Of `files`, each has "path" (within the release), "code", "name",
/// "version" and "sha256". The same files give the same document.
[[nodiscard]] Json billOfMaterials(const Json& files);

/// The notices of the makers of those libraries, and of the ones in the desk itself; UTF-8.
[[nodiscard]] std::string thirdPartyNotices();
