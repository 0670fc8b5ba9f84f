// The strict four-field version rule.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Splits `version` into its four fields. False when the text breaks the rule; `error`, when
/// given, is emptied first and then says how.
bool splitVersion(std::string_view version, std::vector<std::string>& fields,
                  std::string* error = nullptr);

/// The four numbers, most significant first, converted as atoi does. `numbers` is emptied first
/// and stays empty on failure.
bool parseVersion(std::string_view version, std::vector<int>& numbers,
                  std::string* error = nullptr);
