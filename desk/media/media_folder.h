// Media as they lie on the disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desk/executables/file_summary.h"

/// The path of what has this name in `folder`, in any letter case, as Windows finds it; a name in
/// the same letter case first.
[[nodiscard]] std::optional<std::filesystem::path> findInFolder(const std::filesystem::path& folder,
                                                                const std::string& name);

/// What is wrong with a file: it is empty, or an executable that is not whole. Empty when nothing
/// is; of other kinds of file no more is known.
[[nodiscard]] std::string damageOf(const std::filesystem::path& file, const FileSummary& summary);

/// The same of a file that may not be readable.
[[nodiscard]] std::string damageOf(const std::filesystem::path& file);

/// The stamped installer in a media folder: "Install.exe", else the only stamped executable. Throws
/// Refusal when there is none, or several.
[[nodiscard]] std::filesystem::path findInstaller(const std::filesystem::path& folder);

/// What lies directly in `folder`, sorted by name. Throws Refusal when it cannot be read.
[[nodiscard]] std::vector<std::filesystem::path> entriesIn(const std::filesystem::path& folder);
