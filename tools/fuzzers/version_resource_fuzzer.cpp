#include "installed/analyser_version.h"
#include "platform/version_resource.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 4) {
        return 0;
    }
    const std::size_t offset = data[0] | data[1] << 8;
    const std::size_t length = data[2] | data[3] << 8;
    const std::string_view block = asText(data + 4, size - 4);
    // Beyond the block by number only: such an address is never formed from the block's pointer.
    const auto value = reinterpret_cast<std::uintptr_t>(block.data()) + offset;
    const std::string text =
        versionResourceText(block, reinterpret_cast<const char*>(value), length);
    require(text.size() <= sizeof "Version " - 1 + block.size());
    require(text.find('\0') == std::string::npos);
    const std::string_view version = versionPart(text);
    require(version.find_first_not_of("0123456789.") == std::string_view::npos);
    require(text.ends_with(version));
    return 0;
}
