// Files, read and written as a whole.
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// All bytes of a file; nothing when it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path);

/// The same. Throws Refusal with the reason when the file cannot be read.
std::string readInput(const std::string& path);

/// Replaces or makes the file, wholly or not at all: writes a temporary file beside it, then
/// renames. False with `error` filled (path and reason), and nothing left behind, when that fails.
bool writeWholeFile(const std::string& path, std::string_view content, std::string& error);

/// The same, and makes its folder. Throws Refusal with the reason.
void writeOutput(const std::string& path, std::string_view content);

/// True when both paths lead to the same existing file.
bool isSameFile(const std::string& left, const std::string& right);

/// Throws Refusal when both paths lead to the same existing file.
void refuseSameFile(const std::string& input, const std::string& output);
