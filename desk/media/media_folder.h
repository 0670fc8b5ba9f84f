// Media as they lie on the disk: a folder of them, and the set of the folders that belong together,
// which "media.json" beside them lists.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "desk/whole_file.h"

/// The path of what has this name in `folder`, in any letter case, as Windows finds it; a name in
/// the same letter case first.
[[nodiscard]] std::optional<fs::path> findInFolder(const fs::path& folder, const std::string& name);

/// What is wrong with a file: it is empty, or an executable that is not whole. Empty when nothing
/// is; of other kinds of file no more is known.
[[nodiscard]] std::string damageOf(const fs::path& file, const FileSummary& summary);

/// The same of a file that may not be readable.
[[nodiscard]] std::string damageOf(const fs::path& file);

/// The stamped installer in a media folder: "Install.exe", else the only stamped executable. Throws
/// Refusal when there is none, or several.
[[nodiscard]] fs::path findInstaller(const fs::path& folder);

/// What lies directly in `folder`, sorted by name. Throws Refusal when it cannot be read.
[[nodiscard]] std::set<fs::path> entriesIn(const fs::path& folder);

inline constexpr const char* mediaSetFile = "media.json";

struct SetMember {
    std::string build;     ///< empty: any, but the same in all
    std::string manifest;  ///< digest of the folder's manifest; empty: any
};

/// Members by the code of their product, in lower case, which is the name of their folder.
using MediaSet = std::map<std::string, SetMember>;

/// The list in a folder. Throws Refusal when it is none.
[[nodiscard]] MediaSet readMediaSet(const fs::path& folder);

[[nodiscard]] std::string asText(const MediaSet& set);
