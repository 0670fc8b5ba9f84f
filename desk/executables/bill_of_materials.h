#pragma once

#include <string>
#include <vector>

#include "desk/json.h"

/// An executable of a release.
struct ReleasedFile {
    std::string path;  ///< within the release
    std::string code;
    std::string name;
    std::string version;
    std::string digest;  ///< SHA-256
};

/// The software bill of materials, CycloneDX 1.5: each executable and the libraries that are
/// linked into it. The same files give the same document.
[[nodiscard]] Json billOfMaterials(const std::vector<ReleasedFile>& files);

/// The notices of the makers of those libraries, and of the ones in the desk itself; UTF-8.
[[nodiscard]] std::string thirdPartyNotices();
