// What the "Install Product" dialog asks, how far it grows to fit its prompt, and where its icon is
// drawn.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "ui/product_type.h"

struct ProductTypeQuestion {
    std::string productName;  ///< kept by the dialog, not shown
    std::string title;
    std::string prompt;                          ///< of any length and number of lines
    unsigned offeredTypes = product_type::live;  ///< bits of product_type
};

/// In pixels.
struct TextExtent {
    int width;
    int height;
};

/// The prompt's lines, at least one. CR, LF, CR LF and LF CR each end a line. A single break
/// character that ends the prompt is kept in its line. The pieces point into `prompt`.
[[nodiscard]] std::vector<std::string_view> promptLines(std::string_view prompt);

/// Pixels by which the prompt's control of `width` by `height` pixels, and the dialog, become
/// taller; 0 when the lines fit. `width` must be positive and `lines` not empty.
[[nodiscard]] int promptGrowth(std::span<const TextExtent> lines, int width, int height);

/// How many pixels of `room` lie before `part` of them when it is drawn in the middle.
[[nodiscard]] int centredOffset(int room, int part);
