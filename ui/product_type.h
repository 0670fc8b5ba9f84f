#pragma once

/// Bits of the product type; exactly one is set once a choice has been made.
namespace product_type {
inline constexpr unsigned live = 2;
inline constexpr unsigned viewer = 4;
inline constexpr unsigned demonstration = 8;
}  // namespace product_type
