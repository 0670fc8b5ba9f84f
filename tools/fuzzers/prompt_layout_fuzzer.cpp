#include "tools/fuzzers/fuzz_input.h"
#include "ui/install_dialog.h"

void fuzz(std::string_view prompt) {
    const std::vector<std::string_view> lines = promptLines(prompt);
    require(!lines.empty() && lines.back().end() == prompt.end());
    std::vector<TextExtent> extents;
    const char* at = prompt.data();
    for (const std::string_view& line : lines) {
        // In their order, between them nothing but one break of at most two characters.
        const std::string_view gap(at, static_cast<std::size_t>(line.data() - at));
        require(gap.size() <= 2 && gap.find_first_not_of("\r\n") == std::string_view::npos);
        require(gap.empty() == (&line == &lines.front()));
        const std::size_t end = line.find_first_of("\r\n");
        require(end == std::string_view::npos ||
                (&line == &lines.back() && line.size() == end + 1));
        at = line.data() + line.size();
        extents.push_back({static_cast<int>(line.size()) * 6, 13});
    }
    const int height = prompt.empty() ? 0 : static_cast<unsigned char>(prompt[0]);
    const int growth = promptGrowth(extents, 60, height);
    require(growth == 0 || growth >= 4);
    require(growth != 0 || static_cast<int>(lines.size()) * 13 <= height);
    require(promptGrowth(extents, 61, height) <= growth);
    require(promptGrowth(extents, 60, height + 1) <= growth);
}
