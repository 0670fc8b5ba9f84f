#pragma once

#include <string>
#include <string_view>

/// The SHA-256 digest (FIPS 180-4) in lower-case hexadecimal, as sha256sum writes it.
[[nodiscard]] std::string sha256(std::string_view bytes);
