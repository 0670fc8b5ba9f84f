#include <algorithm>

#include "platform/version_number.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    const char delimiter = static_cast<char>(data[0]);
    const std::string_view text = asText(data + 1, size - 1);
    std::vector<std::string> fields;
    splitFields(text, fields, delimiter);
    std::size_t characters = 0;
    for (const std::string& field : fields) {
        characters += field.size();
    }
    require(characters <= text.size());
    require(fields.size() <=
            static_cast<std::size_t>(std::count(text.begin(), text.end(), delimiter)) + 1);
    return 0;
}
