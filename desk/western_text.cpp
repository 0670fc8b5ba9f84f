#include "desk/western_text.h"

#include <iconv.h>

#include "desk/refusal.h"

namespace {

/// `substitute` stands for each character, or `unit` bytes that are none, that cannot be converted.
std::string convert(std::string_view text, const char* from, const char* to, std::size_t unit,
                    std::string_view substitute) {
    // No unit becomes more than three bytes.
    std::string source(text), result(3 * (text.size() / unit), '\0');
    char *next = source.data(), *end = result.data();
    std::size_t left = source.size() / unit * unit, room = result.size();
    iconv_t conversion = iconv_open(to, from);
    while (left > 0 && iconv(conversion, &next, &left, &end, &room) == std::size_t(-1)) {
        end += substitute.copy(end, substitute.size()), room -= substitute.size();
        next += unit, left -= unit;
        const bool isLong = unit == 1 && static_cast<unsigned char>(next[-1]) >= 0xC2;
        while (isLong && left > 0 && (*next & 0xC0) == 0x80) {  // the rest of the character
            ++next, --left;
        }
    }
    iconv_close(conversion);
    result.resize(result.size() - room);
    return result;
}

}  // namespace

CodePage westernCodePage() {
    CodePage page = asciiCodePage;
    const std::string capital = fromUtf8("ŠŒŽŸÀÁÂÃÄÅÆÇÈÉÊËÌÍÎÏÐÑÒÓÔÕÖØÙÚÛÜÝÞ");
    const std::string small = fromUtf8("šœžÿàáâãäåæçèéêëìíîïðñòóôõöøùúûüýþ");
    for (std::size_t index = 0; index < capital.size(); ++index) {
        page.lower[static_cast<unsigned char>(capital[index])] =
            static_cast<unsigned char>(small[index]);
    }
    return page;
}

std::string toUtf8(std::string_view western) {
    return convert(western, "WINDOWS-1252", "UTF-8", 1, "\xEF\xBF\xBD");
}

std::string fromUtf8(std::string_view utf8) {
    return convert(utf8, "UTF-8", "WINDOWS-1252", 1, "?");
}

std::string requireWestern(std::string_view utf8) {
    std::string text = fromUtf8(utf8);
    if (toUtf8(text) != utf8) {
        refuse(std::string(utf8),
               "holds characters that Windows' western code page does not have (" +
                   inQuotes(toUtf8(text)) + "); write it without them.");
    }
    return text;
}

std::string fromUtf16(std::string_view bytes) {
    return fromUtf8(convert(bytes, "UTF-16LE", "UTF-8", 2, "?"));
}
