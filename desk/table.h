#pragma once

#include <string>
#include <vector>

/// The rows, one a line, in columns that are as wide as their widest cell (in ASCII).
[[nodiscard]] std::string inColumns(const std::vector<std::vector<std::string>>& rows);
