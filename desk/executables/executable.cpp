#include "desk/executables/executable.h"

#include <cstdint>
#include <optional>

namespace {

// Of winnt.h: offsets within IMAGE_DOS_HEADER, IMAGE_FILE_HEADER (behind the signature),
// IMAGE_OPTIONAL_HEADER and IMAGE_SECTION_HEADER.
constexpr std::uint64_t signatureField = 60;
constexpr std::uint64_t sectionCountField = 4 + 2;
constexpr std::uint64_t optionalSizeField = 4 + 16;
constexpr std::uint64_t optionalHeader = 4 + 20;
constexpr std::uint64_t checksumField = 64;
constexpr std::uint64_t sectionSize = 40;
constexpr std::uint64_t rawSizeField = 16;
constexpr std::uint64_t rawOffsetField = 20;
constexpr std::uint64_t sectionFlagsField = 36;
constexpr std::uint64_t fileFlagsField = 4 + 18;
constexpr std::uint64_t subsystemVersionField = 48;
constexpr std::uint64_t protectionsField = 70;
constexpr std::uint32_t magic32 = 0x10B;
constexpr std::uint32_t magic64 = 0x20B;
/// The directory of signatures, which holds an offset in the file, not an address.
constexpr std::uint64_t signatureDirectory = 4;
constexpr std::uint64_t relocationDirectory = 5;

constexpr const char* cutOff = "it is cut off: less is there than its headers tell; copy it anew";

class Image {
  public:
    explicit Image(std::string_view bytes) : bytes(bytes) {}

    /// Little-endian; nothing behind the end.
    [[nodiscard]] std::optional<std::uint32_t> number(std::uint64_t offset,
                                                      std::uint64_t size) const {
        if (!holds(offset, size)) {
            return std::nullopt;
        }
        std::uint32_t value = 0;
        for (std::uint64_t index = size; index-- > 0;) {
            value = value << 8 | static_cast<unsigned char>(bytes[offset + index]);
        }
        return value;
    }
    [[nodiscard]] bool holds(std::uint64_t offset, std::uint64_t size) const {
        return offset <= bytes.size() && size <= bytes.size() - offset;
    }

    /// As CheckSumMappedFile (imagehlp.h) computes it, the field itself taken as zero.
    [[nodiscard]] std::uint32_t checksum(std::uint64_t field) const {
        std::uint32_t sum = 0;
        for (std::uint64_t offset = 0; offset < bytes.size(); offset += 2) {
            if (offset != field && offset != field + 2) {
                sum += *number(offset, offset + 1 < bytes.size() ? 2 : 1);
                sum = (sum & 0xFFFF) + (sum >> 16);
            }
        }
        return sum + static_cast<std::uint32_t>(bytes.size());
    }

  private:
    std::string_view bytes;
};

/// Offset of a directory's entry from the start of the optional header.
std::uint64_t directoryEntry(const Image& image, std::uint64_t optional, std::uint64_t directory) {
    return (image.number(optional, 2) == magic64 ? 112 : 96) + directory * 8;
}

/// Whether every section and the signature lie in the file.
bool isWhole(const Image& image, std::uint64_t signature, std::uint64_t sections) {
    const std::uint64_t optional = signature + optionalHeader;
    const std::uint64_t signatureEntry =
        optional + directoryEntry(image, optional, signatureDirectory);
    if (signatureEntry + 8 <= sections) {
        const auto offset = image.number(signatureEntry, 4);
        const auto size = image.number(signatureEntry + 4, 4);
        if (!offset || !size || !image.holds(*offset, *size)) {
            return false;
        }
    }
    const std::uint32_t count = *image.number(signature + sectionCountField, 2);
    for (std::uint32_t index = 0; index < count; ++index) {
        const std::uint64_t section = sections + index * sectionSize;
        const auto size = image.number(section + rawSizeField, 4);
        const auto offset = image.number(section + rawOffsetField, 4);
        if (!size || !offset || (*size != 0 && !image.holds(*offset, *size))) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::string executableDamage(std::string_view bytes) {
    const Image image(bytes);
    if (!bytes.starts_with("MZ")) {
        return "it is no Windows executable";
    }
    const auto signature = image.number(signatureField, 4);
    if (!signature || !image.holds(*signature, optionalHeader + checksumField + 4)) {
        return cutOff;
    }
    const auto magic = *image.number(*signature + optionalHeader, 2);
    if (bytes.substr(*signature, 4) != std::string_view("PE\0\0", 4) ||
        (magic != magic32 && magic != magic64)) {
        return "it is no Windows executable";
    }
    const std::uint64_t sections =
        *signature + optionalHeader + *image.number(*signature + optionalSizeField, 2);
    if (!isWhole(image, *signature, sections)) {
        return cutOff;
    }
    const std::uint64_t field = *signature + optionalHeader + checksumField;
    const std::uint32_t checksum = *image.number(field, 4);
    // The sum is taken in pairs of bytes, which a field at an odd offset does not keep to.
    return checksum == 0 || field % 2 != 0 || checksum == image.checksum(field)
               ? ""
               : "its checksum does not match its content: it was damaged or changed";
}

bool isSigned(std::string_view bytes) {
    const Image image(bytes);
    const std::uint64_t optional = *image.number(signatureField, 4) + optionalHeader;
    const std::uint64_t entry = optional + directoryEntry(image, optional, signatureDirectory);
    return image.number(entry, 4).value_or(0) != 0 && image.number(entry + 4, 4).value_or(0) != 0;
}

std::vector<std::string> missingProtections(std::string_view bytes) {
    // IMAGE_DLLCHARACTERISTICS_, IMAGE_FILE_ and IMAGE_SCN_ flags of winnt.h.
    constexpr std::uint32_t dynamicBase = 0x40, dataIsNotRun = 0x100, noHandlers = 0x400,
                            terminalServerAware = 0x8000, relocationsStripped = 1,
                            swapRuns = 0x400 | 0x800, runs = 0x20000000, isWritten = 0x80000000;
    constexpr std::uint32_t windowsXp = 5 | 1 << 16;
    const Image image(bytes);
    const std::uint64_t signature = *image.number(signatureField, 4);
    const std::uint64_t optional = signature + optionalHeader;
    const std::uint32_t fileFlags = *image.number(signature + fileFlagsField, 2);
    const std::uint32_t protections = image.number(optional + protectionsField, 2).value_or(0);
    const std::uint64_t relocations =
        optional + directoryEntry(image, optional, relocationDirectory);
    std::vector<std::string> missing;
    if ((protections & dynamicBase) == 0 || (fileFlags & relocationsStripped) != 0 ||
        image.number(relocations + 4, 4).value_or(0) == 0) {
        missing.emplace_back("it is not placed at random (ASLR)");
    }
    if ((protections & dataIsNotRun) == 0) {
        missing.emplace_back("its data can be run (no NX)");
    }
    if ((protections & noHandlers) == 0) {
        missing.emplace_back("it takes exception handlers from its own image (no NO_SEH)");
    }
    if ((protections & terminalServerAware) == 0) {
        missing.emplace_back("it is not aware of terminal servers");
    }
    if ((fileFlags & swapRuns) != swapRuns) {
        missing.emplace_back("it is not loaded whole from a disc and from the net");
    }
    if (image.number(optional + subsystemVersionField, 4) != windowsXp) {
        missing.emplace_back("it does not ask for Windows XP (subsystem version 5.1)");
    }
    const std::uint64_t sections = optional + *image.number(signature + optionalSizeField, 2);
    const std::uint32_t count = *image.number(signature + sectionCountField, 2);
    for (std::uint32_t index = 0; index < count; ++index) {
        const std::uint32_t flags =
            image.number(sections + index * sectionSize + sectionFlagsField, 4).value_or(0);
        if ((flags & runs) != 0 && (flags & isWritten) != 0) {
            missing.emplace_back("a section can be written and run");
            break;
        }
    }
    return missing;
}
