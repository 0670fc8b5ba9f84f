#include "catalogue/product_data_file.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = withoutComments(std::string(asText(data, size)));
    require(text.size() <= size);
    ValueParts values;
    if (readVersionSection(text, values)) {
        require(!values.empty());
        for (const auto& [key, value] : values) {
            require(key.find('=') == std::string_view::npos);
            require(value.find('\r') == std::string_view::npos);
        }
    }
    return 0;
}
