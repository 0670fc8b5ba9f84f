#include "platform/files.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view input) {
    if (input.size() < 2) {
        return;
    }
    const std::size_t offset = static_cast<unsigned char>(input[0]);
    const std::size_t length = input[1] == '\xFF' ? SIZE_MAX : static_cast<unsigned char>(input[1]);
    // To the very end of the memory that libFuzzer holds the input in, for the sanitizer.
    const std::string_view block = input.substr(2);
    const std::string text = versionResourceText(block, block.data() + offset, length);
    if (length == 0 || offset >= block.size()) {
        require(text.empty());
        return;
    }
    const std::size_t characters = text.size() - 8;
    require(text.starts_with("Version ") && text.find('\0') == std::string::npos);
    require(characters <= block.size() - offset);
    require(text.substr(8) == block.substr(offset, characters));
    require(characters == block.size() - offset || block[offset + characters] == '\0');
}
