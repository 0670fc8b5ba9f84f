// Copying files that may be long.
#pragma once

#include <filesystem>
#include <string>

/// Copies, or links where `links` is set and the disk can. `label` names the file in the progress
/// that a long copy shows on a terminal. Throws Refusal when that fails.
void copyFile(const std::filesystem::path& source, const std::filesystem::path& target, bool links,
              const std::string& label);

/// Whether both files can be read and have the same bytes.
[[nodiscard]] bool isSameContent(const std::filesystem::path& left,
                                 const std::filesystem::path& right);
