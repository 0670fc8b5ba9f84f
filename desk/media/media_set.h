// The list of the media folders that belong together, "media.json" beside them.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "desk/json.h"

inline constexpr const char* mediaSetFile = "media.json";

struct SetMember {
    std::string build;     ///< empty: any, but the same in all
    std::string manifest;  ///< digest of the folder's manifest; empty: any
};

/// Members by the code of their product, in lower case, which is the name of their folder.
using MediaSet = std::map<std::string, SetMember>;

/// The set in a folder. Without a list it is one of all products, of one build. Throws Refusal.
[[nodiscard]] MediaSet readMediaSet(const std::filesystem::path& folder);

/// A set of these products, of one build. Throws Refusal for a code that is no product's.
[[nodiscard]] MediaSet mediaSetOf(const std::vector<std::string>& codes);

[[nodiscard]] std::string asText(const MediaSet& set);
