#include <cstring>
#include <memory>

#include "platform/files.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::size_t offset = data[0], length = data[1] == 255 ? SIZE_MAX : data[1];
    // Of exactly this size, for the sanitizer.
    const std::size_t held = size - 2;
    const std::unique_ptr<char[]> bytes(new char[held]);
    std::memcpy(bytes.get(), data + 2, held);
    const std::string text = versionResourceText({bytes.get(), held}, bytes.get() + offset, length);
    if (length == 0 || offset >= held) {
        require(text.empty());
        return 0;
    }
    const std::size_t characters = text.size() - 8;
    require(text.starts_with("Version ") && text.find('\0') == std::string::npos);
    require(characters <= held - offset);
    require(std::memcmp(text.data() + 8, bytes.get() + offset, characters) == 0);
    require(characters == held - offset || bytes[offset + characters] == '\0');
    return 0;
}
