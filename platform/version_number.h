// The strict four-field version rule, and the splitter that it is made of.
#pragma once

#include <string>
#include <vector>

/// Splits `text` at `delimiter` into `fields` (emptied first). A backquote escapes: before the
/// delimiter it puts the delimiter into the field, before any other character both stand for
/// themselves; when the delimiter is the backquote, a doubled one stands for one and a single one
/// splits. Empty fields are kept, but for a last one that is empty.
void splitFields(std::string_view text, std::vector<std::string>& fields, char delimiter);

/// Splits `version` into its four fields. False when the text breaks the rule; `error`, when
/// given, is emptied first and then says how.
[[nodiscard]] bool splitVersion(std::string_view version, std::vector<std::string>& fields,
                                std::string* error = nullptr);

/// The four numbers, most significant first, converted as atoi does. `numbers` is emptied first
/// and stays empty on failure.
[[nodiscard]] bool parseVersion(std::string_view version, std::vector<int>& numbers,
                                std::string* error = nullptr);
