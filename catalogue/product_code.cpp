#include "catalogue/product_code.h"

#include <algorithm>

#include "platform/ansi_text.h"

namespace {

// Without i, j, l and o, which are easily misread.
constexpr std::string_view alphabet = "0123456789abcdefghkmnpqrstuvwxyz";
static_assert(alphabet.size() == 32);

}  // namespace

std::string codeFromNumber(int number, int width) {
    std::string code;
    // The arithmetic shift takes a negative number to -1, never to 0.
    do {
        code += alphabet[number & 31];
        number >>= 5;
    } while (number != 0 && number != -1);
    if (width > 0 && code.size() < static_cast<std::size_t>(width)) {
        code.resize(static_cast<std::size_t>(width), alphabet[0]);
    }
    std::reverse(code.begin(), code.end());
    return code;
}

int numberFromCode(std::string_view code, std::string* error) {
    const auto fail = [error](std::string text) {
        if (error != nullptr) {
            *error = std::move(text);
        }
        return -1;
    };
    if (code.empty()) {
        return fail("Empty source string.");
    }
    unsigned number = 0;  // a code that is too long wraps round
    for (const char character : lowerCase(code)) {
        const std::size_t digit = alphabet.find(character);
        if (digit == std::string_view::npos) {
            return fail(std::string("Invalid character: ") + character);
        }
        number = number * 32 + static_cast<unsigned>(digit);
    }
    return static_cast<int>(number);
}
