// Files, read and written as a whole; docs/formats.md describes those that are JSON documents.
#pragma once

#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "desk/refusal.h"

namespace fs = std::filesystem;
/// Members keep the order in which they were put in.
using Json = nlohmann::ordered_json;

/// All bytes of a file. Throws Refusal with the system's reason when the file cannot be read.
std::string readInput(const std::string& path);

/// The same; nothing when it cannot be read.
std::optional<std::string> readWholeFile(const std::string& path);

/// A document, in which comments are allowed. Throws Refusal, with line and column where the file
/// holds none.
[[nodiscard]] Json readJson(const std::string& file);

/// What an exception says, without the JSON library's own prefix.
[[nodiscard]] std::string reasonOf(const std::exception& error);

/// Each text of a list on a line of its own, behind `mark`.
[[nodiscard]] std::string inLines(const std::string& mark, const Json& texts);

/// What one reading of a file tells, however long it is.
struct FileSummary {
    std::string head;           ///< the first mebibyte
    std::uint64_t size = 0;     ///< in bytes
    std::uint64_t wordSum = 0;  ///< as sumOfWords
    std::string digest;         ///< as sha256
};

/// Throws Refusal when the file cannot be read.
[[nodiscard]] FileSummary summarize(const std::string& file);

/// The SHA-256 digest of bytes, in lower-case hexadecimal.
[[nodiscard]] std::string sha256(std::string_view bytes);

/// The sum of the 16-bit words of bytes, little-endian, an odd last byte included.
[[nodiscard]] std::uint64_t sumOfWords(std::string_view bytes);

/// Replaces or makes the file with its folder, wholly or not at all: writes a temporary file beside
/// it, then renames. A link to a file is followed. Throws Refusal with the system's reason, and
/// leaves nothing behind, when that fails.
void writeOutput(const std::string& path, std::string_view content);

/// Throws Refusal when both paths lead to the same existing file.
void refuseSameFile(const std::string& input, const std::string& output);

/// Makes a folder with those that lead to it. Throws Refusal.
void makeFolder(const std::string& folder);
