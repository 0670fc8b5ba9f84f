// The stamped product in an executable's version resource, which Explorer and inventory programs
// show. ui/version.rc leaves room behind the texts: nothing moves, the lengths alone change.
#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Sets "ProductName" and "FileDescription" after `name`, and the product version after `build`
/// unless that is empty or not four numbers. What the image has no room for, or no resource, stays
/// as it is.
void stampVersion(std::string& image, std::string_view name, std::string_view build);

/// A text of the version resource, such as "ProductName", without blanks at its end and with "?"
/// for characters that are not ASCII. Nothing when the image does not hold it.
[[nodiscard]] std::optional<std::string> versionText(std::string_view image, std::string_view key);
