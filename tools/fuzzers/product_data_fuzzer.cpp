#include "catalogue/product_data_file.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view input) {
    const std::string text = withoutComments(std::string(input));
    require(text.size() <= input.size());
    ValueParts values;
    if (readVersionSection(text, values)) {
        require(!values.empty());
        for (const auto& [key, value] : values) {
            require(key.find('=') == std::string_view::npos);
            require(value.find('\r') == std::string_view::npos);
        }
    }
}
