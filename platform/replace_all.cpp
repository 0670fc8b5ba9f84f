#include "platform/replace_all.h"

#include "platform/ansi_text.h"

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
