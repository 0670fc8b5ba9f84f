#include "platform/ansi_text.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view rest) {
    const std::string_view pattern = takeText(rest);
    const std::string_view replacement = takeText(rest);
    for (const bool ignoreCase : {false, true}) {
        require(replaceAll(rest, pattern, pattern, false) == rest);
        const std::string result = replaceAll(rest, pattern, replacement, ignoreCase);
        if (pattern.empty() || pattern.size() > rest.size()) {
            require(result == rest);
        }
        if (replacement.empty()) {
            require(result.size() <= rest.size());
        }
    }
}
