#include <algorithm>
#include <cstring>

#include "catalogue/product_code.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view code) {
    std::string error;
    const int decoded = numberFromCode(code, &error);
    require(decoded != -1 || !error.empty() || code.size() > 6);
    int number = 0;
    std::memcpy(&number, code.data(), std::min(code.size(), sizeof number));
    const std::string encoded = codeFromNumber(number);
    require(encoded.size() >= 2);
    if (number >= 0) {
        require(numberFromCode(encoded) == number);
    }
}
