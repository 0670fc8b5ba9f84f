// What a fuzzer is made of.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

/// What each fuzzer does with an input.
void fuzz(std::string_view input);

/// The text up to the first zero byte; `rest` keeps what follows it.
inline std::string_view takeText(std::string_view& rest) {
    const std::size_t end = rest.find('\0');
    const std::string_view text = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return text;
}

/// Stops the fuzzer with the input that broke the promise.
inline void require(bool promise) {
    if (!promise) {
        std::abort();
    }
}
