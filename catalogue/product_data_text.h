// The text of the product-data file: comments, sections, values.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "catalogue/product_data.h"

/// Header of the only section that is read.
inline constexpr std::string_view versionSectionHeader = "[Version Number]";

/// The file's lines without those that begin with ";", joined by single line feeds.
std::string withoutComments(std::string_view fileContent);

/// The body behind `header` up to the next "[", trimmed; false when it is missing or empty.
bool extractSection(std::string_view text, std::string_view header, std::string& body);

/// Fills `values` (emptied first) from lines "key=value" that end in a carriage return; the first
/// of two equal keys wins. True when there is any.
bool parseValues(std::string_view body, CProductData::TextMap& values);

/// Reads the version section into `values`, which is left alone when there is no such section.
bool readVersionSection(std::string_view text, CProductData::TextMap& values);
