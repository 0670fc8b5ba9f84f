#include "desk/western_text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "desk/refusal.h"

namespace {

constexpr char32_t undefined = 0xFFFD;

/// The characters of the bytes 0x80 to 0x9F; all others have their own number.
constexpr char32_t high[] = {
    0x20AC,    undefined, 0x201A, 0x0192, 0x201E, 0x2026,    0x2020, 0x2021,
    0x02C6,    0x2030,    0x0160, 0x2039, 0x0152, undefined, 0x017D, undefined,
    undefined, 0x2018,    0x2019, 0x201C, 0x201D, 0x2022,    0x2013, 0x2014,
    0x02DC,    0x2122,    0x0161, 0x203A, 0x0153, undefined, 0x017E, 0x0178,
};
static_assert(std::size(high) == 0x20);

char toWestern(char32_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) {
        return static_cast<char>(character);
    }
    const char32_t* const found = std::find(std::begin(high), std::end(high), character);
    return found == std::end(high) || character == undefined
               ? '?'
               : static_cast<char>(0x80 + (found - std::begin(high)));
}

/// Takes the character at the front of `text`; anything that is not UTF-8 is taken byte by byte.
char32_t takeCharacter(std::string_view& text) {
    const auto byte = [&text](std::size_t index) {
        return static_cast<unsigned char>(text[index]);
    };
    const unsigned char first = byte(0);
    const std::size_t length = first < 0x80             ? 1
                               : (first & 0xE0) == 0xC0 ? 2
                               : (first & 0xF0) == 0xE0 ? 3
                               : (first & 0xF8) == 0xF0 ? 4
                                                        : 0;
    char32_t character = length == 1 ? first : first & (0x7Fu >> length);
    bool valid = length != 0 && length <= text.size();
    for (std::size_t index = 1; valid && index < length; ++index) {
        valid = (byte(index) & 0xC0) == 0x80;
        character = character << 6 | (byte(index) & 0x3Fu);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    valid = valid && character >= smallest[length];
    text.remove_prefix(valid ? length : 1);
    return valid ? character : undefined;
}

}  // namespace

CodePage westernCodePage() {
    CodePage page = asciiCodePage;
    for (unsigned upper = 0xC0; upper <= 0xDE; ++upper) {
        if (upper != 0xD7) {  // the multiplication sign
            page.lower[upper] = static_cast<unsigned char>(upper + 0x20);
        }
    }
    for (const unsigned upper : {0x8Au, 0x8Cu, 0x8Eu}) {
        page.lower[upper] = static_cast<unsigned char>(upper + 0x10);
    }
    page.lower[0x9F] = 0xFF;
    return page;
}

std::string toUtf8(std::string_view western) {
    std::string text;
    for (const char byte : western) {
        const auto number = static_cast<unsigned char>(byte);
        const char32_t character = number >= 0x80 && number < 0xA0 ? high[number - 0x80] : number;
        if (character < 0x80) {
            text += byte;
        } else if (character < 0x800) {
            text += static_cast<char>(0xC0 | character >> 6);
            text += static_cast<char>(0x80 | (character & 0x3F));
        } else {
            text += static_cast<char>(0xE0 | character >> 12);
            text += static_cast<char>(0x80 | (character >> 6 & 0x3F));
            text += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    return text;
}

std::string fromUtf8(std::string_view utf8) {
    std::string text;
    while (!utf8.empty()) {
        text += toWestern(takeCharacter(utf8));
    }
    return text;
}

std::string requireWestern(std::string_view utf8) {
    std::string text = fromUtf8(utf8);
    if (toUtf8(text) != utf8) {
        throw Refusal("\"" + std::string(utf8) +
                      "\" holds characters that Windows' western code page does not have (\"" +
                      toUtf8(text) + "\"); write it without them.");
    }
    return text;
}

std::string fromUtf16(std::string_view bytes) {
    std::string text;
    for (std::size_t index = 0; index + 1 < bytes.size(); index += 2) {
        const auto unit = static_cast<char32_t>(static_cast<unsigned char>(bytes[index]) |
                                                static_cast<unsigned char>(bytes[index + 1]) << 8);
        // The two halves of a character beyond U+FFFF are one "?".
        if (unit < 0xDC00 || unit > 0xDFFF) {
            text += toWestern(unit);
        }
    }
    return text;
}
