// Media as they lie on the disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desk/media/media_report.h"

/// The path of what has this name in `folder`, in any letter case, as Windows finds it; a name in
/// the same letter case first.
[[nodiscard]] std::optional<std::filesystem::path> findInFolder(const std::filesystem::path& folder,
                                                                const std::string& name);

/// Whether the file is whole: a regular file with content, an executable by its own headers.
[[nodiscard]] FileState fileState(const std::filesystem::path& folder, const std::string& name);

/// The media to examine. Throws Refusal when the installer cannot be read or the folder is none.
[[nodiscard]] Media mediaOf(const std::filesystem::path& installer,
                            const std::filesystem::path& folder, const std::string& directory);

/// The stamped installer in a media folder: "Install.exe", else the only stamped executable.
/// Nothing when there is none, or several.
[[nodiscard]] std::optional<std::filesystem::path> findInstaller(
    const std::filesystem::path& folder);

/// The folders directly in `folder`, sorted by name. Throws Refusal when it cannot be read.
[[nodiscard]] std::vector<std::filesystem::path> foldersIn(const std::filesystem::path& folder);
