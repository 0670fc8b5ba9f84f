#pragma once

#include <string>
#include <string_view>

/// "Version " followed by the text at `value`, which ends at its terminator, after `length` bytes
/// or with `block`, whichever comes first: the block is a file's own data and can claim anything.
/// Empty when the length is 0 or `value` does not lie in the block.
[[nodiscard]] std::string versionResourceText(std::string_view block, const char* value,
                                              std::size_t length);
