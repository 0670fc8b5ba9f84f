#include "platform/ansi_text.h"

namespace {

// Process-wide like the code page it describes. Constant until the application object, itself a
// global, replaces it: the order in which globals are constructed is the linker's.
constinit CodePage codePage = asciiCodePage;

unsigned char byteAt(std::string_view text, std::size_t offset) {
    return static_cast<unsigned char>(text[offset]);
}

/// Bytes in the character at `offset`; a lead byte at the very end stands alone.
std::size_t characterLength(std::string_view text, std::size_t offset) {
    return codePage.lead[byteAt(text, offset)] && offset + 1 < text.size() ? 2 : 1;
}

}  // namespace

CodePage describedCodePage(unsigned longestCharacter, const unsigned char* leadRanges,
                           unsigned char (*lower)(unsigned char byte)) {
    CodePage page = asciiCodePage;
    if (longestCharacter == 0 || longestCharacter > 2) {
        return page;
    }
    for (const unsigned char* range = leadRanges; range[0] != 0; range += 2) {
        for (unsigned byte = range[0]; byte <= range[1]; ++byte) {
            page.lead[byte] = true;
        }
    }
    for (std::size_t byte = 0; byte < page.lower.size(); ++byte) {
        const auto character = static_cast<unsigned char>(byte);
        page.lower[byte] = page.lead[byte] ? character : lower(character);
    }
    return page;
}

void useCodePage(const CodePage& page) {
    codePage = page;
}

std::string lowerCase(std::string_view text) {
    std::string lower(text);
    for (std::size_t offset = 0; offset < lower.size();) {
        const std::size_t length = characterLength(lower, offset);
        if (length == 1) {
            lower[offset] = static_cast<char>(codePage.lower[byteAt(lower, offset)]);
        }
        offset += length;
    }
    return lower;
}

bool equalIgnoringCase(std::string_view left, std::string_view right) {
    return left.size() == right.size() && lowerCase(left) == lowerCase(right);
}

std::size_t findIgnoringCase(std::string_view text, std::string_view pattern) {
    const std::string lowerText = lowerCase(text);
    const std::string lowerPattern = lowerCase(pattern);
    for (std::size_t offset = 0; offset + lowerPattern.size() <= lowerText.size();
         offset += characterLength(lowerText, offset)) {
        if (lowerText.compare(offset, lowerPattern.size(), lowerPattern) == 0) {
            return offset;
        }
    }
    return std::string::npos;
}

std::size_t findLastBackslash(std::string_view text) {
    std::size_t last = std::string_view::npos;
    for (std::size_t offset = 0; offset < text.size(); offset += characterLength(text, offset)) {
        if (text[offset] == '\\') {
            last = offset;
        }
    }
    return last;
}

std::string withTrailingBackslash(std::string_view path) {
    const bool hasOne = !path.empty() && findLastBackslash(path) == path.size() - 1;
    return std::string(path) + (hasOne ? "" : "\\");
}

std::string replaceAll(std::string_view text, std::string_view pattern,
                       std::string_view replacement, bool ignoreCase) {
    if (pattern.empty()) {
        return std::string(text);
    }
    // Folding keeps the length, so an offset into the one is an offset into the other.
    const std::string searched = ignoreCase ? lowerCase(text) : std::string(text);
    const std::string wanted = ignoreCase ? lowerCase(pattern) : std::string(pattern);
    std::string result;
    std::size_t copied = 0;
    for (std::size_t match; (match = searched.find(wanted, copied)) != std::string::npos;) {
        result.append(text, copied, match - copied).append(replacement);
        copied = match + wanted.size();
    }
    return result.append(text, copied);
}
