#include "desk/executables/stamp_image.h"

#include <cctype>
#include <cstddef>
#include <cstdint>

#include "app/stamped_identity.h"
#include "catalogue/product_traits.h"
#include "desk/executables/version_stamp.h"
#include "platform/ansi_text.h"

namespace {

/// Little-endian, as in the file; `size` is 2 or 4.
std::uint32_t numberAt(std::string_view image, std::size_t offset, std::size_t size) {
    std::uint32_t number = 0;
    for (std::size_t index = size; index-- > 0;) {
        number = number << 8 | static_cast<unsigned char>(image[offset + index]);
    }
    return number;
}

/// Offset of the optional header (IMAGE_OPTIONAL_HEADER32 of winnt.h); npos when the image has
/// none that reaches up to the data directories.
std::size_t findOptionalHeader(std::string_view image) {
    constexpr std::size_t signatureAndFileHeader = 4 + 20;
    constexpr std::size_t directoriesEnd = 96 + 16 * 8;
    constexpr std::uint32_t magic32 = 0x10B;
    if (image.size() < 64 || !image.starts_with("MZ")) {
        return std::string_view::npos;
    }
    const std::size_t signature = numberAt(image, 60, 4);
    if (image.size() < signatureAndFileHeader + directoriesEnd ||
        signature > image.size() - signatureAndFileHeader - directoriesEnd ||
        image.substr(signature, 4) != std::string_view("PE\0\0", 4) ||
        numberAt(image, signature + signatureAndFileHeader, 2) != magic32) {
        return std::string_view::npos;
    }
    return signature + signatureAndFileHeader;
}

/// As CheckSumMappedFile (imagehlp.h) computes it; the checksum itself must be zero.
std::uint32_t imageChecksum(std::string_view image) {
    std::uint32_t sum = 0;
    for (std::size_t offset = 0; offset < image.size(); offset += 2) {
        sum += numberAt(image, offset, offset + 1 < image.size() ? 2 : 1);
        sum = (sum & 0xFFFF) + (sum >> 16);
    }
    return sum + static_cast<std::uint32_t>(image.size());
}

void writeText(std::string& image, std::size_t offset, std::size_t size, std::string_view text) {
    image.replace(offset, size, std::string(text) + std::string(size - text.size(), '\0'));
}

enum class BlockSearch { Found, Missing, Repeated };

BlockSearch findBlock(std::string_view image, std::size_t& block) {
    const std::string_view marker(stampMarker, sizeof stampMarker);
    block = image.find(marker);
    if (block == std::string::npos || image.size() - block < sizeof(StampedIdentity)) {
        return BlockSearch::Missing;
    }
    return image.find(marker, block + 1) == std::string::npos ? BlockSearch::Found
                                                              : BlockSearch::Repeated;
}

std::string_view readText(std::string_view image, std::size_t offset, std::size_t size) {
    const std::string_view bytes = image.substr(offset, size);
    return bytes.substr(0, bytes.find('\0'));
}

std::string upperCase(std::string text) {
    for (char& character : text) {
        character = static_cast<char>(std::toupper(static_cast<unsigned char>(character)));
    }
    return text;
}

}  // namespace

bool chooseStampedCode(const CProductData& catalogue, std::string_view given, std::string& stamped,
                       std::string& note, std::string& error) {
    note.clear();
    for (const auto& [code, name] : catalogue.ProductNames) {
        if (!equalIgnoringCase(given, code)) {
            continue;
        }
        stamped = traitsOf(code).freeViewer ? upperCase(code) : code;
        if (given != stamped && given != code) {
            note = "stamped as \"" + stamped + "\", the form that the installer looks up";
        }
        return true;
    }
    error = "No product with code \"" + std::string(given) +
            "\" can be installed; \"installer-tool products\" shows those that can.";
    return false;
}

bool stampImage(std::string& image, std::string_view code, std::string_view name,
                std::string& error, std::string_view build) {
    constexpr std::size_t checksumOffset = 64;
    constexpr std::size_t certificateTable = 96 + 4 * 8;

    const auto refuse = [&error](const char* reason) {
        error = reason;
        return false;
    };
    if (code.empty() || code.size() >= sizeof StampedIdentity::productCode) {
        return refuse("The product code is empty or too long.");
    }
    if (name.empty() || name.size() >= sizeof StampedIdentity::productName) {
        return refuse("The product name is empty or too long; it has room for 103 characters.");
    }
    const std::size_t header = findOptionalHeader(image);
    if (header == std::string::npos) {
        return refuse(
            "it is no 32-bit Windows executable, or is cut off; name the built installer");
    }
    if (numberAt(image, header + certificateTable, 4) != 0) {
        return refuse(
            "it is signed, and stamping would break the signature; stamp the unsigned installer, "
            "then sign");
    }
    std::size_t block = 0;
    switch (findBlock(image, block)) {
        case BlockSearch::Missing:
            return refuse(
                "it has no room for a product's identity, so it is none of our installers; name "
                "the built one");
        case BlockSearch::Repeated:
            return refuse(
                "it has room for a product's identity more than once; build the installer anew");
        case BlockSearch::Found:
            break;
    }
    stampVersion(image, name, build);
    writeText(image, block + offsetof(StampedIdentity, productCode),
              sizeof StampedIdentity::productCode, code);
    writeText(image, block + offsetof(StampedIdentity, productName),
              sizeof StampedIdentity::productName, name);
    // IMAGE_FILE_REMOVABLE_RUN_FROM_SWAP and IMAGE_FILE_NET_RUN_FROM_SWAP (winnt.h), which the
    // linker has no option for: a disc taken out or a share that is gone does not end the program.
    image[header - 1] = static_cast<char>(image[header - 1] | 0x0C);
    writeText(image, header + checksumOffset, 4, "");
    const std::uint32_t checksum = imageChecksum(image);
    for (std::size_t index = 0; index < 4; ++index) {
        image[header + checksumOffset + index] = static_cast<char>(checksum >> (8 * index));
    }
    return true;
}

bool readStamp(std::string_view image, std::string& code, std::string& name) {
    std::size_t block = 0;
    if (findBlock(image, block) != BlockSearch::Found) {
        return false;
    }
    code = readText(image, block + offsetof(StampedIdentity, productCode),
                    sizeof StampedIdentity::productCode);
    name = readText(image, block + offsetof(StampedIdentity, productName),
                    sizeof StampedIdentity::productName);
    return true;
}
