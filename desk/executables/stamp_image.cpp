#include "desk/executables/stamp_image.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <optional>

#include "app/stamped_identity.h"
#include "catalogue/product_traits.h"
#include "desk/executables/executable.h"
#include "desk/executables/version_stamp.h"
#include "desk/media/product_data.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "desk/whole_file.h"
#include "platform/ansi_text.h"

namespace {

void writeText(std::string& image, std::size_t offset, std::size_t size, std::string_view text) {
    image.replace(offset, size, std::string(text) + std::string(size - text.size(), '\0'));
}

/// Where the block is; nothing when it is not there exactly once.
std::optional<std::size_t> findBlock(std::string_view image) {
    const std::string_view marker(stampMarker, sizeof stampMarker);
    const std::size_t block = image.find(marker);
    const bool isThere = block != std::string::npos &&
                         image.size() - block >= sizeof(StampedIdentity) &&
                         image.find(marker, block + 1) == std::string::npos;
    return isThere ? std::optional(block) : std::nullopt;
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
    const std::optional<std::size_t> found = findBlock(image);
    if (!found) {
        throw Refusal(
            "it does not have room for a product's identity exactly once, so it is none of our "
            "installers; name the built one");
    }
    const std::size_t block = *found;
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
    const std::optional<std::size_t> block = findBlock(image);
    if (!block) {
        return false;
    }
    code = readText(image, *block + offsetof(StampedIdentity, productCode),
                    sizeof StampedIdentity::productCode);
    name = readText(image, *block + offsetof(StampedIdentity, productName),
                    sizeof StampedIdentity::productName);
    return true;
}

ProductStamp chooseStamp(CProductData& catalogue, const std::string& code, const std::string& name,
                         const std::string& build) {
    ProductStamp stamp;
    const StampedCode stamped = chooseStampedCode(catalogue, code);
    stamp.code = stamped.code;
    if (!stamped.note.empty()) {
        stamp.notes.push_back("the code \"" + code + "\" is " + stamped.note);
    }
    const std::string ownName = catalogue.ProductNames.find(lowerCase(stamp.code))->second;
    stamp.name = name.empty() ? ownName : name;
    if (stamp.name != ownName) {
        stamp.notes.push_back("the dialog's title will say \"" + toUtf8(stamp.name) +
                              "\", the program folder \"" + ownName +
                              "\"; leave the name out to have both agree");
    }
    if (stamp.name.size() > longestStampedName) {
        throw Refusal("The name \"" + toUtf8(stamp.name) + "\" does not fit: it has " +
                      std::to_string(stamp.name.size()) + " characters, and there is room for " +
                      std::to_string(longestStampedName) + ". Name the product more shortly.");
    }
    const auto isAscii = [](char character) { return character >= ' ' && character <= '~'; };
    if (!std::all_of(stamp.name.begin(), stamp.name.end(), isAscii)) {
        stamp.notes.push_back("the name holds characters that each code page shows in its own way");
    }
    if (!build.empty()) {
        requireBuildNumbers(build);
    }
    stamp.build = build;
    return stamp;
}

std::string readInstaller(const std::string& file) {
    std::string image;
    readInPieces(file, [&](std::string_view piece) {
        image += piece;
        if (image.size() > largestInstaller) {
            throw Refusal("\"" + file + "\" is larger than any installer.");
        }
    });
    return image;
}

std::string stampedInstaller(std::string image, const std::string& file,
                             const ProductStamp& stamp) {
    try {
        if (const std::string damage = Executable(image).damage(); !damage.empty()) {
            throw Refusal(damage);
        }
        stampImage(image, stamp.code, stamp.name, stamp.build);
    } catch (const Refusal& reason) {
        throw Refusal("\"" + file + "\" cannot be stamped: " + reason.what() + '.');
    }
    return image;
}
