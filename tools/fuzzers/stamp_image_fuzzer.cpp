#include "tools/fuzzers/fuzz_input.h"
#include "tools/stamp_image.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string original(asText(data, size));
    std::string image = original, error, code, name;
    if (stampImage(image, "1k", "A product", error)) {
        require(image.size() == original.size());
        require(readStamp(image, code, name) && code == "1k" && name == "A product");
    } else {
        require(image == original && !error.empty());
    }
    return 0;
}
