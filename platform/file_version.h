#pragma once

#include <string>

/// "Version " followed by the text at `value`, which ends at its terminator or with `block`: the
/// block is a file's own data and can claim anything. `length` counts characters, not bytes. Empty
/// when it is 0 or `value` does not lie in the block.
[[nodiscard]] std::string versionResourceText(std::string_view block, const char* value,
                                              std::size_t length);
