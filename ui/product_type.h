#pragma once

#include "ui/resource.h"

/// Bits of the product type; exactly one is set once a choice has been made.
namespace product_type {
inline constexpr unsigned live = 2;
inline constexpr unsigned viewer = 4;
inline constexpr unsigned demonstration = 8;
}  // namespace product_type

/// What the "Install Product" dialog lets choose, and what becomes of it.
struct ProductChoice {
    unsigned type;  ///< one bit of product_type
    int control;    ///< the radio button
    const char* label;
    const char* typeWord;     ///< for the setup utility
    const char* editionWord;  ///< in the program folder's name; none for the live product
};

/// In the order of the radio buttons; the live product, which is always offered, is the first.
inline constexpr ProductChoice productChoices[] = {
    {product_type::live, IDC_LIVE_PRODUCT, TEXT_LIVE_PRODUCT, "LIVE", ""},
    {product_type::viewer, IDC_FILE_VIEWER, TEXT_FILE_VIEWER, "VIEW", "Viewer"},
    {product_type::demonstration, IDC_DEMONSTRATION, TEXT_DEMONSTRATION, "DEMO", "Demo"},
};
