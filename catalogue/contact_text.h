#pragma once

#include <string>

/// The maker's contact block, in its layouts.
namespace contact_layout {
inline constexpr char lines[] =
    "Halvick Test Equipment\n"
    "Technical Support\n"
    "100 Instrument Way\n"
    "Halvick, VA 22999\n"
    "USA\n"
    "Web: https://www.halvick.example/\n"
    "E-mail: support@halvick.example\n"
    "Telephone: +1 434 555 0100\n"
    "Fax: +1 434 555 0101\n";
/// For the product line.
inline constexpr char columns[] =
    "Halvick Test Equipment\tTelephone: +1 434 555 0100\n"
    "100 Instrument Way\tFax: +1 434 555 0101\n"
    "Halvick, VA 22999\tE-mail: support@halvick.example\n"
    "USA\tWeb: https://www.halvick.example/\n";
}  // namespace contact_layout

/// Whom to ask about the product, the maker in this `layout`; empty when the code is empty or not a
/// valid one.
[[nodiscard]] std::string contactText(std::string_view code, const char* layout);
