#pragma once

#include <string>

#include "catalogue/product_data.h"

/// The product-data file of the installation folder: "ProductData.inx", else "ProductData.ini".
/// Its text is loaded at most once; the application object holds the only one, since the
/// catalogue's ProductDataValues are parts of that text. Not to be copied for the same reason.
class ProductDataFile {
  public:
    ProductDataFile() = default;
    ProductDataFile(const ProductDataFile&) = delete;
    ProductDataFile& operator=(const ProductDataFile&) = delete;

    /// Loads the text from `folder`, or from the program's own folder when that is empty. Once
    /// loaded, returns the cached path without another look. False with `error` filled when there
    /// is no such file or it cannot be read or deciphered; a later call then tries again.
    bool loadText(const std::string& folder, std::string& path, std::string& error);

    /// Loads from the program's own folder and refills the catalogue's ProductDataValues. True
    /// when the version section yielded a key; `path`, when given, is the loaded file's.
    /// A failed load leaves its reason in the catalogue's lastError.
    bool loadProductValues(CProductData& catalogue, std::string* path = nullptr);

  private:
    std::string loadedPath;
    std::string text;  ///< without comment lines
};
