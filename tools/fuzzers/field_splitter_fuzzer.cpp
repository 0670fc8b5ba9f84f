#include <algorithm>
#include <numeric>

#include "platform/version_number.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view input) {
    if (input.empty()) {
        return;
    }
    const char delimiter = input.front();
    const std::string_view text = input.substr(1);
    std::vector<std::string> fields;
    splitFields(text, fields, delimiter);
    const std::string kept = std::accumulate(fields.begin(), fields.end(), std::string());
    require(kept.size() <= text.size());
    require(fields.size() <=
            static_cast<std::size_t>(std::count(text.begin(), text.end(), delimiter)) + 1);
}
