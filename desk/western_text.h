// Texts of the installer are bytes in the machine's ANSI code page. The tools take that to be
// Windows-1252, the page of the machines that the products are sold for, and speak UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "platform/ansi_text.h"

/// Windows-1252, for useCodePage.
[[nodiscard]] CodePage westernCodePage();

/// A byte that the page leaves undefined becomes U+FFFD.
[[nodiscard]] std::string toUtf8(std::string_view western);

/// What the page does not have becomes "?", as in Windows' own conversion; so does each byte that
/// is not UTF-8.
[[nodiscard]] std::string fromUtf8(std::string_view utf8);

/// From UTF-16, little-endian, without byte-order mark; an odd last byte is left out.
[[nodiscard]] std::string fromUtf16(std::string_view bytes);

/// As fromUtf8. Throws Refusal when the page does not have all of the text.
[[nodiscard]] std::string requireWestern(std::string_view utf8);
