#include "app/stamped_identity.h"

#include <algorithm>

namespace {

// At compile time, so that the marker stands in the executable only once: within the block.
consteval StampedIdentity emptyBlock() {
    StampedIdentity block{};
    std::copy(std::begin(stampMarker), std::end(stampMarker), block.marker);
    return block;
}

template <std::size_t Size>
std::string textOf(const volatile char (&bytes)[Size]) {
    std::string text;
    for (std::size_t index = 0; index < Size && bytes[index] != '\0'; ++index) {
        text += bytes[index];
    }
    return text;
}

}  // namespace

constinit volatile StampedIdentity stampedIdentity = emptyBlock();

ProductIdentity readStampedIdentity() {
    return {textOf(stampedIdentity.productCode), textOf(stampedIdentity.productName)};
}
