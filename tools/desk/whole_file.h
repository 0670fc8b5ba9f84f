#pragma once

#include <optional>
#include <string>
#include <string_view>

/// All bytes of a file; nothing when it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path);

/// Replaces or makes the file, wholly or not at all: writes a temporary file beside it, then
/// renames. False with `error` filled, and nothing left behind, when that fails.
bool writeWholeFile(const std::string& path, std::string_view content, std::string& error);

/// True when both paths lead to the same existing file.
bool isSameFile(const std::string& left, const std::string& right);
