// Files, read and written as a whole.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// Hands on the bytes of a file in pieces of a mebibyte, the last of them smaller. Throws Refusal
/// with the system's reason when the file cannot be read.
void readInPieces(const std::string& path, const std::function<void(std::string_view)>& take);

/// All bytes of a file. Throws Refusal as above.
std::string readInput(const std::string& path);

/// The same; nothing when it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path);

/// Replaces or makes the file with its folder, wholly or not at all: writes a temporary file beside
/// it, then renames. A link to a file is followed. Throws Refusal with the system's reason, and
/// leaves nothing behind, when that fails.
void writeOutput(const std::string& path, std::string_view content);

/// Throws Refusal when both paths lead to the same existing file.
void refuseSameFile(const std::string& input, const std::string& output);

/// Makes a folder with those that lead to it. Throws Refusal.
void makeFolder(const std::string& folder);
