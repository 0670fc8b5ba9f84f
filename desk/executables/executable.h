// A Windows executable, by what its own headers say.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "desk/whole_file.h"

/// The little-endian number of so many bytes at `offset`; what lies behind the end counts as 0.
[[nodiscard]] std::uint32_t numberAt(std::string_view content, std::uint64_t offset, int bytes);

/// Answers from bytes that outlive it. What is asked beyond damage is asked of a whole executable.
class Executable {
  public:
    explicit Executable(std::string_view bytes)
        : Executable(bytes, bytes.size(), sumOfWords(bytes)) {}
    explicit Executable(const FileSummary& file) : Executable(file.head, file.size, file.wordSum) {}

    /// What is wrong with it, for people: it is none, was cut off, or was changed after its
    /// checksum was set. Empty when it is whole as far as the headers tell; a checksum of 0 is one
    /// that was never set.
    [[nodiscard]] std::string damage() const;
    /// The same, but for the checksum.
    [[nodiscard]] std::string headerDamage() const;

    [[nodiscard]] bool is32Bit() const { return number(optional, 2) == 0x10B; }
    [[nodiscard]] bool isSigned() const;

    /// The protections that it lacks, for people: random placement, data that cannot be run, code
    /// that cannot be written, no exception handlers of its own, awareness of terminal servers,
    /// being loaded whole from a disc and from the net, Windows XP as the oldest.
    [[nodiscard]] std::vector<std::string> missingProtections() const;

    /// As CheckSumMappedFile (imagehlp.h) computes it, and where it is kept in the file.
    [[nodiscard]] std::uint32_t checksum() const;
    [[nodiscard]] std::uint64_t checksumField() const { return optional + 64; }
    /// Where the two bytes of IMAGE_FILE_ flags (winnt.h) are kept in the file.
    [[nodiscard]] std::uint64_t fileFlagsField() const { return signature + 22; }

  private:
    Executable(std::string_view head, std::uint64_t size, std::uint64_t wordSum);
    [[nodiscard]] std::uint32_t number(std::uint64_t offset, int bytes) const {
        return numberAt(head, offset, bytes);
    }
    /// Whether the file holds the bytes that a header tells the offset and the size of.
    [[nodiscard]] bool holds(std::uint64_t offsetField, std::uint64_t sizeField) const {
        return std::uint64_t{number(offsetField, 4)} + number(sizeField, 4) <= size;
    }
    /// Where the entry of a data directory lies.
    [[nodiscard]] std::uint64_t directory(std::uint64_t index) const {
        return optional + (is32Bit() ? 96 : 112) + index * 8;
    }
    [[nodiscard]] bool reachesItsEnd() const;

    std::string_view head;  ///< begins the file and goes beyond the headers
    std::uint64_t size;
    std::uint64_t wordSum;
    std::uint64_t signature;     ///< offset of "PE\0\0"
    std::uint64_t optional;      ///< offset of the optional header
    std::uint64_t sections;      ///< offset of the section headers
    std::uint64_t sectionCount;  ///< how many of them there are
};
