#pragma once

#include <string>
#include <string_view>

/// The text with every occurrence of `pattern` replaced; what was inserted is not searched again.
/// An empty pattern replaces nothing. Letters outside the occurrences keep their case.
std::string replaceAll(std::string_view text, std::string_view pattern,
                       std::string_view replacement, bool ignoreCase);
