// What the uninstall prompt says and how it sorts.
#pragma once

#include <string>

struct UninstallPromptTexts {
    const char* found;     ///< above the list
    const char* question;  ///< below the list
};

[[nodiscard]] UninstallPromptTexts uninstallPromptTexts(std::size_t productCount);

/// Widths of the list's columns in pixels: the tick boxes, and the names.
struct ListColumnWidths {
    int tick;
    int name;
};

/// For a display of so many dots per inch; 96 is the one that needs no scaling, 0 (unknown) counts
/// as that.
[[nodiscard]] ListColumnWidths listColumnWidths(int dotsPerInch);

/// The one sort order that the list knows; any other leaves it as it is.
inline constexpr long ascendingOrder = 1;

/// Negative, 0 or positive, for lower-case names.
[[nodiscard]] int compareLowerCaseNames(const std::string& left, const std::string& right,
                                        long order);
