#include "desk/executables/stamp_image.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>

#include "catalogue/product_traits.h"
#include "desk/executables/executable.h"
#include "desk/western_text.h"
#include "platform/ansi_text.h"

namespace {

constexpr std::size_t longestName = sizeof StampedIdentity::productName - 1;

/// Where the block is; nothing when it is not there exactly once.
std::optional<std::size_t> findBlock(std::string_view image) {
    const std::string_view marker(stampMarker, sizeof stampMarker);
    const std::size_t block = image.find(marker);
    const bool isThere = block != std::string::npos &&
                         image.size() - block >= sizeof(StampedIdentity) &&
                         image.find(marker, block + 1) == std::string::npos;
    return isThere ? std::optional(block) : std::nullopt;
}

using BuildNumbers = std::array<unsigned, 4>;

/// The numbers of a build; nothing when the text is not four numbers from 0 to 65535, separated by
/// dots: version resources hold no others.
std::optional<BuildNumbers> buildNumbers(std::string_view build) {
    BuildNumbers numbers{};
    int size = 0;
    const bool isRead = build.find_first_not_of("0123456789.") == std::string_view::npos &&
                        std::sscanf(std::string(build).c_str(), "%9u.%9u.%9u.%9u%n", numbers.data(),
                                    &numbers[1], &numbers[2], &numbers[3], &size) == 4;
    const bool isBuild = isRead && static_cast<std::size_t>(size) == build.size() &&
                         std::ranges::max(numbers) <= 0xFFFF;
    return isBuild ? std::optional(numbers) : std::nullopt;
}

// VS_VERSIONINFO and String of verrsrc.h: length of the whole node in bytes, length of the value
// (of a text: in characters, terminator included), type (1: text), key, value at a multiple of
// four bytes.
constexpr std::size_t headerSize = 6;
constexpr std::size_t valueLengthField = 2;
constexpr std::size_t typeField = 4;

std::string utf16(std::string_view text) {
    std::string wide;
    for (const char character : text) {
        wide += character;
        wide += '\0';
    }
    return wide;
}

void setShort(std::string& image, std::size_t offset, std::size_t number) {
    image[offset] = static_cast<char>(number);
    image[offset + 1] = static_cast<char>(number >> 8);
}

/// A node of the resource, within the image.
struct Node {
    std::size_t start = 0;
    std::size_t value = 0;
    std::size_t end = 0;
};

/// The node with this key between two offsets, when there is exactly one.
std::optional<Node> findNode(std::string_view image, std::string_view key, std::size_t from,
                             std::size_t to) {
    const std::string wide = utf16(key) + std::string(2, '\0');
    const std::string_view range = image.substr(0, to);
    const std::size_t found = range.find(wide, from + headerSize);
    if (found == std::string_view::npos || range.find(wide, found + 1) != std::string_view::npos) {
        return std::nullopt;
    }
    const std::size_t start = found - headerSize;
    const Node node{start, (found + wide.size() + 3) / 4 * 4, start + numberAt(image, start, 2)};
    if (start % 4 != 0 || node.end > to || node.value > node.end) {
        return std::nullopt;
    }
    return node;
}

std::optional<Node> findVersion(std::string_view image) {
    return findNode(image, "VS_VERSION_INFO", 0, image.size());
}

std::optional<Node> findText(std::string_view image, std::string_view key) {
    const Node version = findVersion(image).value_or(Node());
    const std::optional<Node> text = findNode(image, key, version.value, version.end);
    return text && numberAt(image, text->start + typeField, 2) == 1 ? text : std::nullopt;
}

void setText(std::string& image, std::string_view key, std::string_view text) {
    const std::optional<Node> node = findText(image, key);
    const std::string wide = utf16(text) + std::string(2, '\0');
    if (!node || wide.size() > node->end - node->value) {
        return;
    }
    const std::size_t room = node->end - node->value;
    image.replace(node->value, room, wide + std::string(room - wide.size(), '\0'));
    setShort(image, node->start + valueLengthField, wide.size() / 2);
}

/// The product's version in VS_FIXEDFILEINFO, whose halves stand high word first.
void setProductVersion(std::string& image, const BuildNumbers& build) {
    constexpr std::size_t size = 52;
    constexpr std::size_t productVersion = 16;
    const std::optional<Node> version = findVersion(image);
    if (!version || version->end - version->value < size ||
        image.compare(version->value, 4, "\xBD\x04\xEF\xFE") != 0) {
        return;
    }
    const std::size_t field = version->value + productVersion;
    for (const std::size_t part : {0, 1, 2, 3}) {
        setShort(image, field + (part ^ 1) * 2, build[part]);
    }
}

void stampVersion(std::string& image, std::string_view name, std::string_view build) {
    setText(image, "ProductName", name);
    setText(image, "FileDescription", std::string(name) + " Installation");
    const std::optional<BuildNumbers> numbers = buildNumbers(build);
    if (numbers) {
        setProductVersion(image, *numbers);
    }
    // Without the blanks that made the room.
    setText(image, "ProductVersion",
            numbers ? std::string(build) : versionText(image, "ProductVersion").value_or(""));
}

}  // namespace

std::string stampedCode(const CProductData& catalogue, std::string_view given) {
    const auto product = catalogue.ProductNames.find(lowerCase(given));
    if (product == catalogue.ProductNames.end()) {
        throw Refusal("No product with code " + inQuotes(std::string(given)) +
                      " can be installed; \"installer-tool products\" shows those that can.");
    }
    return traitsOf(product->first).freeViewer ? "1Q" : product->first;
}

void stampImage(std::string& image, std::string_view code, std::string_view name,
                std::string_view build) {
    if (code.empty() || code.size() >= sizeof StampedIdentity::productCode) {
        throw Refusal("the product code is empty or too long");
    }
    if (name.empty() || name.size() > longestName) {
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
    const std::optional<std::size_t> offset = findBlock(image);
    if (!offset) {
        throw Refusal(
            "it does not have room for a product's identity exactly once, so it is none of our "
            "installers; name the built one");
    }
    stampVersion(image, name, build);
    StampedIdentity block{};
    std::copy(std::begin(stampMarker), std::end(stampMarker), block.marker);
    code.copy(block.productCode, code.size());
    name.copy(block.productName, name.size());
    std::memcpy(image.data() + *offset, &block, sizeof block);
    // IMAGE_FILE_REMOVABLE_RUN_FROM_SWAP and IMAGE_FILE_NET_RUN_FROM_SWAP (winnt.h), which the
    // linker has no option for: a disc taken out or a share that is gone does not end the program.
    char& fileFlags = image[executable.fileFlagsField() + 1];
    fileFlags = static_cast<char>(fileFlags | 0x0C);
    const std::uint32_t checksum = Executable(image).checksum();
    setShort(image, executable.checksumField(), checksum);
    setShort(image, executable.checksumField() + 2, checksum >> 16);
}

ProductIdentity readStamp(std::string_view image) {
    StampedIdentity block{};
    if (const std::optional<std::size_t> offset = findBlock(image)) {
        std::memcpy(&block, image.data() + *offset, sizeof block);
    }
    return {{block.productCode, strnlen(block.productCode, sizeof block.productCode)},
            {block.productName, strnlen(block.productName, sizeof block.productName)}};
}

ProductStamp chooseStamp(const std::string& code, const std::string& name,
                         const std::string& build) {
    const CProductData catalogue;
    const std::string stamped = stampedCode(catalogue, code);
    const auto& [ownCode, ownName] = *catalogue.ProductNames.find(lowerCase(code));
    ProductStamp stamp{stamped, name.empty() ? ownName : name, build, {}};
    if (code != stamp.code && code != ownCode) {
        stamp.notes.push_back("the code " + inQuotes(code) + " is stamped as " +
                              inQuotes(stamp.code) + ", the form that the installer looks up");
    }
    if (stamp.name != ownName) {
        stamp.notes.push_back("the dialog's title will say " + inQuotes(toUtf8(stamp.name)) +
                              ", the program folder " + inQuotes(ownName) +
                              "; leave the name out to have both agree");
    }
    if (stamp.name.size() > longestName) {
        throw Refusal("The name " + inQuotes(toUtf8(stamp.name)) + " does not fit: it has " +
                      std::to_string(stamp.name.size()) + " characters, and there is room for " +
                      std::to_string(longestName) + ". Name the product more shortly.");
    }
    const auto isAscii = [](char character) { return character >= ' ' && character <= '~'; };
    if (!std::all_of(stamp.name.begin(), stamp.name.end(), isAscii)) {
        stamp.notes.emplace_back(
            "the name holds characters that each code page shows in its own way");
    }
    if (!build.empty() && !buildNumbers(build)) {
        throw Refusal("The build " + inQuotes(build) +
                      " is not four numbers from 0 to 65535, such as 16.4.12000.0.");
    }
    return stamp;
}

std::string readInstaller(const std::string& file) {
    std::error_code failure;
    if (const auto size = fs::file_size(file, failure); !failure && size > largestInstaller) {
        refuse(file, "is larger than any installer.");
    }
    return readInput(file);
}

std::string stampedInstaller(const std::string& file, const ProductStamp& stamp) {
    std::string image = readInstaller(file);
    try {
        if (const std::string damage = Executable(image).damage(); !damage.empty()) {
            throw Refusal(damage);
        }
        stampImage(image, stamp.code, stamp.name, stamp.build);
    } catch (const Refusal& reason) {
        throw Refusal(inQuotes(file) + " cannot be stamped: " + reason.what() + '.');
    }
    return image;
}

std::optional<std::string> versionText(std::string_view image, std::string_view key) {
    const std::optional<Node> node = findText(image, key);
    if (!node) {
        return std::nullopt;
    }
    std::string text;
    for (std::size_t offset = node->value;
         offset + 2 <= node->end && numberAt(image, offset, 2) != 0; offset += 2) {
        const std::size_t character = numberAt(image, offset, 2);
        text += character < 0x80 ? static_cast<char>(character) : '?';
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}
