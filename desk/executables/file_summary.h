// What one reading of a file tells, however long it is.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct FileSummary {
    std::string head;           ///< the first mebibyte
    std::uint64_t size = 0;     ///< in bytes
    std::uint64_t wordSum = 0;  ///< of all 16-bit words, little-endian, an odd last byte included
    std::string digest;         ///< SHA-256, in lower-case hexadecimal
};

/// Throws Refusal when the file cannot be read.
[[nodiscard]] FileSummary summarize(const std::string& file);

/// The digest of bytes.
[[nodiscard]] std::string sha256(std::string_view bytes);

/// The sum of the 16-bit words of bytes.
[[nodiscard]] std::uint64_t sumOfWords(std::string_view bytes);
