// What sets a product apart from the others on its way through a run.
#pragma once

#include <string_view>

struct ProductTraits {
    const char* code = "";
    /// The free protocol viewer: it replaces its older editions and is installed without a
    /// question and without drivers, and the standards body, not the maker, answers for it.
    bool freeViewer = false;
    /// Has a setup for each processor, and a live product's type word names the one to take.
    bool processorSpecificSetups = false;
    /// "x86" follows the type word, whatever was chosen and whatever Windows runs.
    bool alwaysX86 = false;
    /// The program folder goes without the maker's name in front.
    bool withoutMakerName = false;
    /// Offers the removal of every product of the maker, not only of its own older versions.
    bool replacesMakerProducts = false;
};

/// The traits of the product with this code, letter case ignored; none for any other product.
[[nodiscard]] const ProductTraits& traitsOf(std::string_view productCode);

/// The same by product number.
[[nodiscard]] const ProductTraits& traitsOf(int productNumber);
