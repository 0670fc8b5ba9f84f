#include "catalogue/cipher.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view text) {
    std::string plain, error;
    require(decipher(encipher(text), plain, error) && plain == text && error.empty());
    if (decipher(text, plain, error)) {
        require(encipher(plain) == text);
    } else {
        require(plain.empty() && !error.empty());
    }
}
