#pragma once

#include "catalogue/product_catalogue.h"
#include "platform/computer.h"

/// Loads the text of "ProductData.inx", else "ProductData.ini", from `folder`, or from the
/// program's own folder when that is empty, into the catalogue. Once a text that is not empty was
/// loaded, returns its path without another look. False with `error` filled and an empty
/// `path` when there is no such file or it cannot be read or deciphered; a later call then tries
/// again.
[[nodiscard]] bool loadProductDataText(CProductData& catalogue, Computer& computer,
                                       const std::string& folder, std::string& path,
                                       std::string& error);

/// Loads from the program's own folder and refills the catalogue's ProductDataValues. True when the
/// version section yielded a key; `path`, when given, is the loaded file's. A failed load leaves
/// its reason in the catalogue's lastError.
bool loadProductValues(CProductData& catalogue, Computer& computer, std::string* path = nullptr);
