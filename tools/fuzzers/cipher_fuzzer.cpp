#include "catalogue/cipher.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text = asText(data, size);
    std::string plain, error;
    require(decipher(encipher(text), plain, error) && plain == text && error.empty());
    if (decipher(text, plain, error)) {
        require(encipher(plain) == text);
    } else {
        require(plain.empty() && !error.empty());
    }
    return 0;
}
