#include <cstring>

#include "catalogue/product_code.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string error;
    const std::string_view code = asText(data, size);
    const int decoded = numberFromCode(code, &error);
    require(decoded != -1 || !error.empty() || code.size() > 6);
    int number = 0;
    std::memcpy(&number, data, size < sizeof number ? size : sizeof number);
    const std::string encoded = codeFromNumber(number);
    require(encoded.size() >= 2);
    if (number >= 0) {
        require(numberFromCode(encoded) == number);
    }
    return 0;
}
