#include "platform/version_number.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view input) {
    std::vector<int> numbers;
    std::string error;
    const bool valid = parseVersion(input, numbers, &error);
    require(valid == error.empty() && numbers.size() == (valid ? 4u : 0u));
    require(valid == parseVersion(input, numbers));
}
