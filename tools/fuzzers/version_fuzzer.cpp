#include "platform/version_number.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::vector<int> numbers;
    std::string error;
    const bool valid = parseVersion(asText(data, size), numbers, &error);
    require(valid == error.empty() && numbers.size() == (valid ? 4u : 0u));
    require(valid == parseVersion(asText(data, size), numbers));
    return 0;
}
