#include "ui/install_dialog.h"

namespace {

/// Room left below the last line, in pixels.
constexpr int bottomMargin = 4;

}  // namespace

std::vector<std::string_view> promptLines(std::string_view prompt) {
    std::vector<std::string_view> lines;
    for (;;) {
        const std::size_t end = prompt.find_first_of("\r\n");
        // Kept: a lone break at the very end opens no further line, a pair does. The prompts in
        // the field were laid out against this.
        if (end == std::string_view::npos || end + 1 == prompt.size()) {
            lines.push_back(prompt);
            return lines;
        }
        lines.push_back(prompt.substr(0, end));
        const char other = prompt[end] == '\r' ? '\n' : '\r';
        prompt.remove_prefix(prompt[end + 1] == other ? end + 2 : end + 1);
    }
}

int promptGrowth(std::span<const TextExtent> lines, int width, int height) {
    int count = 0;
    for (const TextExtent& line : lines) {
        ++count;
        // Kept generous: a line of exactly two widths counts as three, since words that do not
        // break at the edge need the room.
        if (line.width > width) {
            count += line.width / width;
        }
    }
    const int growth = lines.back().height * count - height;
    return growth < 0 ? 0 : growth + bottomMargin;
}

int centredOffset(int room, int part) {
    return (room - part + 1) / 2;
}
