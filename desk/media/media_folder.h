// Media as they lie on the disk.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desk/executables/file_summary.h"
#include "desk/media/media_report.h"

/// The path of what has this name in `folder`, in any letter case, as Windows finds it; a name in
/// the same letter case first.
[[nodiscard]] std::optional<std::filesystem::path> findInFolder(const std::filesystem::path& folder,
                                                                const std::string& name);

/// What is wrong with a file: it is empty, or an executable that is not whole. Empty when nothing
/// is; of other kinds of file no more is known.
[[nodiscard]] std::string damageOf(const std::filesystem::path& file, const FileSummary& summary);

/// Whether the file is there, can be read and is whole.
[[nodiscard]] FileState fileState(const std::filesystem::path& folder, const std::string& name);

/// The media to examine. Throws Refusal when the installer cannot be read or the folder is none.
[[nodiscard]] Media mediaOf(const std::filesystem::path& installer,
                            const std::filesystem::path& folder, const std::string& directory);

/// The stamped installer in a media folder: "Install.exe", else the only stamped executable.
/// Nothing when there is none, or several.
[[nodiscard]] std::optional<std::filesystem::path> findInstaller(
    const std::filesystem::path& folder);

/// What keeps the media from being complete: a line for each file that is missing or damaged, and
/// each problem; UTF-8.
[[nodiscard]] std::vector<std::string> faultsOf(const MediaReport& report);

/// The folders directly in `folder`, sorted by name. Throws Refusal when it cannot be read.
[[nodiscard]] std::vector<std::filesystem::path> foldersIn(const std::filesystem::path& folder);
