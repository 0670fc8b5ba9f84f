// Multibyte-aware, case-insensitive text operations: their one home.
//
// Texts are byte strings in the ANSI code page. In a double-byte page the second byte of a
// character can be a letter, a backquote or a backslash, so a byte-wise operation would see
// characters that are not there.
#pragma once

#include <array>
#include <string>

/// What the operations need to know of a code page.
struct CodePage {
    std::array<unsigned char, 256> lower{};  ///< lower-case form of each single-byte character
    std::array<bool, 256> lead{};            ///< true: the byte starts a two-byte character
};

/// Folds A to Z only, has no two-byte characters.
inline constexpr CodePage asciiCodePage = [] {
    CodePage page;
    for (std::size_t byte = 0; byte < page.lower.size(); ++byte) {
        const bool upper = byte >= 'A' && byte <= 'Z';
        page.lower[byte] = static_cast<unsigned char>(upper ? byte - 'A' + 'a' : byte);
    }
    return page;
}();

/// The code page as the system describes it: the bytes of its longest character, the first and last
/// byte of each range of lead bytes, ended by two zeros, and the fold of a single byte. The ASCII
/// page, where the longest is not known (0) or longer than two bytes (UTF-8): half of the bytes are
/// then parts of characters, which cannot be folded one by one, and no other character has an ASCII
/// byte in it.
[[nodiscard]] CodePage describedCodePage(unsigned longestCharacter, const unsigned char* leadRanges,
                                         unsigned char (*lower)(unsigned char byte));

/// Makes `page` the code page of every operation below, for the whole process. The start-up
/// calls it once with the system's page; until then the page is asciiCodePage.
void useCodePage(const CodePage& page);

/// The text with every single-byte character folded; two-byte characters are kept.
[[nodiscard]] std::string lowerCase(std::string_view text);

[[nodiscard]] bool equalIgnoringCase(std::string_view left, std::string_view right);

/// Offset of the first occurrence, never inside a two-byte character; npos when there is none.
[[nodiscard]] std::size_t findIgnoringCase(std::string_view text, std::string_view pattern);

/// Offset of the last backslash character (not of a second byte 0x5C); npos when there is none.
[[nodiscard]] std::size_t findLastBackslash(std::string_view text);

/// The text with every occurrence of `pattern` replaced; what was inserted is not searched again.
/// An empty pattern replaces nothing. Letters outside the occurrences keep their case.
[[nodiscard]] std::string replaceAll(std::string_view text, std::string_view pattern,
                                     std::string_view replacement, bool ignoreCase);

/// The path, with a backslash appended when its last character is not one.
[[nodiscard]] std::string withTrailingBackslash(std::string_view path);
