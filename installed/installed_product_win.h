#pragma once

#include <string>
#include <vector>

#include "installed/installed_product.h"

// Each function appends to `products`, in the registry's order, and returns whether it appended
// anything; nothing is reported.

/// Every installed version above 10 whose display name contains `filter` (case-sensitive).
[[nodiscard]] bool findInstalledProducts(const std::string& filter,
                                         std::vector<InstalledProduct>& products);

/// Every installed version of any product of the maker.
[[nodiscard]] bool findInstalledMakerProducts(std::vector<InstalledProduct>& products);

/// The versions of the product with this number, found by the name that the code directory has
/// for it; false without a look at the registry when it has none.
[[nodiscard]] bool findInstalledProductsFor(int productNumber,
                                            std::vector<InstalledProduct>& products);
