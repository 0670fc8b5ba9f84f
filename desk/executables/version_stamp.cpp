#include "desk/executables/version_stamp.h"

#include <cstddef>
#include <cstdint>

#include "desk/media/product_data.h"

namespace {

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

/// `offset` lies in the image with two bytes at least.
std::size_t shortAt(std::string_view image, std::size_t offset) {
    return static_cast<unsigned char>(image[offset]) |
           static_cast<std::size_t>(static_cast<unsigned char>(image[offset + 1])) << 8;
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
    const Node node{start, (found + wide.size() + 3) / 4 * 4, start + shortAt(image, start)};
    if (start % 4 != 0 || node.end > to || node.value > node.end) {
        return std::nullopt;
    }
    return node;
}

std::optional<Node> findVersion(std::string_view image) {
    return findNode(image, "VS_VERSION_INFO", 0, image.size());
}

std::optional<Node> findText(std::string_view image, std::string_view key) {
    const std::optional<Node> version = findVersion(image);
    std::optional<Node> text;
    if (version) {
        text = findNode(image, key, version->value, version->end);
    }
    return text && shortAt(image, text->start + typeField) == 1 ? text : std::nullopt;
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
        setShort(image, field + (part ^ 1) * 2, build.parts[part]);
    }
}

}  // namespace

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

std::optional<std::string> versionText(std::string_view image, std::string_view key) {
    const std::optional<Node> node = findText(image, key);
    if (!node) {
        return std::nullopt;
    }
    std::string text;
    for (std::size_t offset = node->value; offset + 2 <= node->end; offset += 2) {
        const std::size_t character = shortAt(image, offset);
        if (character == 0) {
            break;
        }
        text += character < 0x80 ? static_cast<char>(character) : '?';
    }
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}
