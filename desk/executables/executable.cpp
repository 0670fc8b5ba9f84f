#include "desk/executables/executable.h"

#include <utility>

namespace {

// Of winnt.h: offsets within IMAGE_DOS_HEADER, IMAGE_FILE_HEADER (behind the signature),
// IMAGE_OPTIONAL_HEADER and IMAGE_SECTION_HEADER.
constexpr std::uint64_t signatureField = 60;
constexpr std::uint64_t sectionCountField = 4 + 2;
constexpr std::uint64_t optionalSizeField = 4 + 16;
constexpr std::uint64_t optionalHeader = 4 + 20;
constexpr std::uint64_t protectionsField = 70;
constexpr std::uint64_t sectionSize = 40;
constexpr std::uint64_t sectionFlagsField = 36;
constexpr std::uint64_t subsystemVersionField = 48;
constexpr std::uint32_t magic64 = 0x20B;
/// The directory of signatures, which holds an offset in the file, not an address.
constexpr std::uint64_t signatureDirectory = 4;
constexpr std::uint64_t relocationDirectory = 5;

constexpr const char* cutOff = "it is cut off: less is there than its headers tell; copy it anew";

}  // namespace

Executable::Executable(std::string_view head, std::uint64_t size, std::uint64_t wordSum)
    : head(head),
      size(size),
      wordSum(wordSum),
      signature(number(signatureField, 4)),
      optional(signature + optionalHeader),
      sections(optional + number(signature + optionalSizeField, 2)),
      sectionCount(number(signature + sectionCountField, 2)) {}

std::uint32_t numberAt(std::string_view content, std::uint64_t offset, int bytes) {
    std::uint32_t value = 0;
    for (std::uint64_t at = offset + static_cast<unsigned>(bytes); at-- > offset;) {
        value = value << 8 | (at < content.size() ? static_cast<unsigned char>(content[at]) : 0U);
    }
    return value;
}

bool Executable::reachesItsEnd() const {
    const std::uint64_t entry = directory(signatureDirectory);
    if (sections + sectionCount * sectionSize > head.size() ||
        (entry + 8 <= sections && !holds(entry, entry + 4))) {
        return false;
    }
    for (std::uint64_t index = 0; index < sectionCount; ++index) {
        const std::uint64_t section = sections + index * sectionSize;
        const std::uint64_t sizeField = section + 16, offsetField = section + 20;  // of raw data
        if (number(sizeField, 4) != 0 && !holds(offsetField, sizeField)) {
            return false;
        }
    }
    return true;
}

std::string Executable::headerDamage() const {
    if (!head.starts_with("MZ")) {
        return "it is no Windows executable";
    }
    if (signature == 0 || checksumField() + 4 > head.size()) {
        return cutOff;
    }
    if (head.substr(signature, 4) != std::string_view("PE\0\0", 4) ||
        (!is32Bit() && number(optional, 2) != magic64)) {
        return "it is no Windows executable";
    }
    return reachesItsEnd() ? "" : cutOff;
}

std::string Executable::damage() const {
    if (std::string damage = headerDamage(); !damage.empty()) {
        return damage;
    }
    const std::uint32_t kept = number(checksumField(), 4);
    // The sum is taken in pairs of bytes, which a field at an odd offset does not keep to.
    const bool isRight = kept == 0 || checksumField() % 2 != 0 || kept == checksum();
    return isRight ? "" : "its checksum does not match its content: it was damaged or changed";
}

std::uint32_t Executable::checksum() const {
    // The field itself counts as zero.
    std::uint64_t sum = wordSum - number(checksumField(), 2) - number(checksumField() + 2, 2);
    while (sum > 0xFFFF) {
        sum = (sum & 0xFFFF) + (sum >> 16);
    }
    return static_cast<std::uint32_t>(sum + size);
}

bool Executable::isSigned() const {
    const std::uint64_t entry = directory(signatureDirectory);
    return number(entry, 4) != 0 && number(entry + 4, 4) != 0;
}

std::vector<std::string> Executable::missingProtections() const {
    // IMAGE_DLLCHARACTERISTICS_, IMAGE_FILE_ and IMAGE_SCN_ flags of winnt.h.
    constexpr std::uint32_t dynamicBase = 0x40, dataIsNotRun = 0x100, noHandlers = 0x400,
                            terminalServerAware = 0x8000, relocationsStripped = 1,
                            swapRuns = 0x400 | 0x800, runs = 0x20000000, isWritten = 0x80000000;
    constexpr std::uint32_t windowsXp = 5 | 1 << 16;
    const std::uint32_t fileFlags = number(fileFlagsField(), 2);
    const std::uint32_t protections = number(optional + protectionsField, 2);
    bool isWrittenAndRun = false;
    for (std::uint64_t index = 0; index < sectionCount; ++index) {
        const std::uint32_t flags = number(sections + index * sectionSize + sectionFlagsField, 4);
        isWrittenAndRun |= (flags & runs) != 0 && (flags & isWritten) != 0;
    }
    const std::pair<bool, const char*> lacks[] = {
        {(protections & dynamicBase) == 0 || (fileFlags & relocationsStripped) != 0 ||
             number(directory(relocationDirectory) + 4, 4) == 0,
         "it is not placed at random (ASLR)"},
        {(protections & dataIsNotRun) == 0, "its data can be run (no NX)"},
        {(protections & noHandlers) == 0,
         "it takes exception handlers from its own image (no NO_SEH)"},
        {(protections & terminalServerAware) == 0, "it is not aware of terminal servers"},
        {(fileFlags & swapRuns) != swapRuns, "it is not loaded whole from a disc and from the net"},
        {number(optional + subsystemVersionField, 4) != windowsXp,
         "it does not ask for Windows XP (subsystem version 5.1)"},
        {isWrittenAndRun, "a section can be written and run"}};
    std::vector<std::string> missing;
    for (const auto& [isLacking, what] : lacks) {
        if (isLacking) {
            missing.emplace_back(what);
        }
    }
    return missing;
}
