#pragma once

#include <string>

/// Name of any product code ever issued. False, with an empty name, for an empty or unknown code.
[[nodiscard]] bool findDirectoryName(std::string_view code, std::string& name);

/// The same by product number; a negative one names no product.
[[nodiscard]] bool findDirectoryName(int productNumber, std::string& name);
