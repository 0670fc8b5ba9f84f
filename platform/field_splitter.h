#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Splits `text` at `delimiter` into `fields` (emptied first). A backquote escapes: before the
/// delimiter it puts the delimiter into the field, before any other character both stand for
/// themselves; when the delimiter is the backquote, a doubled one stands for one and a single one
/// splits. Empty fields are kept, but for a last one that is empty.
void splitFields(std::string_view text, std::vector<std::string>& fields, char delimiter);
