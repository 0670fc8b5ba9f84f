#include "desk/executables/stamp_image.h"

#include <cctype>
#include <cstddef>
#include <cstdint>

#include "app/stamped_identity.h"
#include "catalogue/product_traits.h"
#include "desk/executables/executable.h"
#include "desk/executables/version_stamp.h"
#include "desk/refusal.h"
#include "platform/ansi_text.h"

namespace {

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

StampedCode chooseStampedCode(const CProductData& catalogue, std::string_view given) {
    for (const auto& [code, name] : catalogue.ProductNames) {
        if (!equalIgnoringCase(given, code)) {
            continue;
        }
        StampedCode stamped{traitsOf(code).freeViewer ? upperCase(code) : code, ""};
        if (given != stamped.code && given != code) {
            stamped.note =
                "stamped as \"" + stamped.code + "\", the form that the installer looks up";
        }
        return stamped;
    }
    throw Refusal("No product with code \"" + std::string(given) +
                  "\" can be installed; \"installer-tool products\" shows those that can.");
}

void stampImage(std::string& image, std::string_view code, std::string_view name,
                std::string_view build) {
    if (code.empty() || code.size() >= sizeof StampedIdentity::productCode) {
        throw Refusal("the product code is empty or too long");
    }
    if (name.empty() || name.size() > longestStampedName) {
        throw Refusal("the product name is empty or too long; it has room for 103 characters");
    }
    const Executable executable(image);
    if (!executable.headerDamage().empty() || !executable.is32Bit()) {
        throw Refusal(
            "it is no 32-bit Windows executable, or is cut off; name the built installer");
    }
    if (executable.isSigned()) {
        throw Refusal(
            "it is signed, and stamping would break the signature; stamp the unsigned installer, "
            "then sign");
    }
    std::size_t block = 0;
    switch (findBlock(image, block)) {
        case BlockSearch::Missing:
            throw Refusal(
                "it has no room for a product's identity, so it is none of our installers; name "
                "the built one");
        case BlockSearch::Repeated:
            throw Refusal(
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
    char& fileFlags = image[static_cast<std::size_t>(executable.fileFlagsField()) + 1];
    fileFlags = static_cast<char>(fileFlags | 0x0C);
    const Executable stamped(image);
    const std::uint32_t checksum = stamped.checksum();
    for (std::size_t index = 0; index < 4; ++index) {
        image[static_cast<std::size_t>(stamped.checksumField()) + index] =
            static_cast<char>(checksum >> (8 * index));
    }
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
