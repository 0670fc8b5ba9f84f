#pragma once

#include <string>

/// Reads "Version " followed by the FileVersion of the US-English Unicode string table of the
/// file's version resource. False when the file has no version resource; true with an empty text
/// when that table, or the value in it, is missing.
[[nodiscard]] bool fileVersionText(const std::string& path, std::string& text);
