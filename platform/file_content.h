#pragma once

#include <optional>
#include <string>

/// All bytes of a file of at most 256 MB, opened without denying others any access; nothing when
/// it cannot be opened or read to its end.
std::optional<std::string> readFileContent(const std::string& path);
