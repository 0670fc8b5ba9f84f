#include "app/stamped_identity.h"
#include "desk/executables/stamp_image.h"
#include "desk/refusal.h"
#include "tools/fuzzers/fuzz_input.h"

namespace {

constexpr std::size_t blockOffset = 320;

/// The least that can be stamped.
std::string executable() {
    std::string image(blockOffset + sizeof(StampedIdentity), '\0');
    image.replace(0, 2, "MZ");
    image[60] = 64;
    image.replace(64, 2, "PE");
    image.replace(64 + 24, 2, "\x0B\x01");
    return image.replace(blockOffset, sizeof stampMarker, stampMarker, sizeof stampMarker);
}

}  // namespace

// The input: a code, a name, then changes of the executable, an offset of two bytes and a byte
// each. An offset past the end cuts the file there.
void fuzz(std::string_view rest) {
    const std::string_view code = takeText(rest), name = takeText(rest);
    std::string image = executable();
    for (; rest.size() >= 3; rest.remove_prefix(3)) {
        const std::size_t offset =
            static_cast<unsigned char>(rest[0]) | static_cast<std::size_t>(rest[1] & 1) << 8;
        if ((rest[1] & 2) != 0) {
            image.resize(offset);
        } else if (offset < image.size()) {
            image[offset] = rest[2];
        } else {
            image += rest[2];
        }
    }
    const std::string before = image;
    try {
        stampImage(image, code, name);
    } catch (const Refusal&) {
        require(image == before);
        std::ignore = readStamp(image);
        return;
    }
    require(image.size() == before.size());
    require(!code.empty() && code.size() < 8 && !name.empty() && name.size() < 104);
    const ProductIdentity read = readStamp(image);
    // A name can hold the marker itself.
    require(read.code.empty()
                ? name.find(std::string_view(stampMarker, sizeof stampMarker)) != std::string::npos
                : read.code == code && read.name == name);
    std::string again = image;
    try {
        stampImage(again, code, name);
    } catch (const Refusal&) {
        return;  // a name that holds the marker makes it two blocks
    }
    require(again == image);
}
