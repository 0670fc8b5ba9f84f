#include "desk/table.h"

#include <algorithm>

std::string inColumns(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; row.size() > 1 && column < row.size(); ++column) {
            widths[column] = std::max(widths[column], row[column].size());
        }
    }
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t column = 0; column < row.size(); ++column) {
            text += row[column];
            if (column + 1 < row.size()) {
                text.append(widths[column] - row[column].size() + 2, ' ');
            }
        }
        text.erase(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}
