// What is known of a product before anything is built, from the installer's own decisions.
#pragma once

#include <string>
#include <vector>

#include "catalogue/product_catalogue.h"

struct ProductFacts {
    std::string code;  ///< as stamped
    int number = 0;
    std::string name;
    std::string edition;               ///< full, demonstration, viewer-only, free viewer
    std::string demonstrationOf;       ///< the full product's code; empty: of none
    std::string route;                 ///< through the run, in words
    bool endsSilently = false;         ///< the run installs nothing and says nothing
    std::vector<std::string> choices;  ///< that the dialog offers; empty: nothing is asked
    std::vector<std::string> files;    ///< that the run needs on the media
    bool setupsPerProcessor = false;
};

/// `code` as the catalogue has it.
[[nodiscard]] ProductFacts productFacts(CProductData& catalogue, const std::string& code);

/// In the order of their codes.
[[nodiscard]] std::vector<ProductFacts> allProductFacts();
