#pragma once

#include <string>
#include <vector>

/// The rows, one a line, in columns that are as wide as their widest cell (in ASCII); a row of one
/// cell is a line of its own.
[[nodiscard]] std::string inColumns(const std::vector<std::vector<std::string>>& rows);

/// The texts with commas between them.
template <class Texts>
[[nodiscard]] std::string joined(const Texts& texts) {
    std::string all;
    for (const std::string& text : texts) {
        all += (all.empty() ? "" : ", ") + text;
    }
    return all;
}
