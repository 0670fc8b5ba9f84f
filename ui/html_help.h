#pragma once

#include <string>

/// The help file of the program at `programPath`: beside it, with its name, ending in ".chm".
[[nodiscard]] std::string helpFilePath(const std::string& programPath);
