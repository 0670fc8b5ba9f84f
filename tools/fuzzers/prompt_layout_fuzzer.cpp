#include <algorithm>

#include "tools/fuzzers/fuzz_input.h"
#include "ui/prompt_layout.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const int width = data[0] + 1;
    const int height = data[1];
    const std::string_view prompt = asText(data + 2, size - 2);
    const std::vector<std::string_view> lines = promptLines(prompt);
    const auto breaks = std::count_if(prompt.begin(), prompt.end(), [](char character) {
        return character == '\r' || character == '\n';
    });
    require(!lines.empty() && lines.size() <= static_cast<std::size_t>(breaks) + 1);
    std::vector<TextExtent> extents;
    for (const std::string_view line : lines) {
        require(line.data() >= prompt.data() &&
                line.data() + line.size() <= prompt.data() + prompt.size());
        extents.push_back({static_cast<int>(line.size()) * 7, 13});
    }
    const int growth = promptGrowth(extents, width, height);
    require(growth == 0 || growth >= 4);
    require(growth == 0 || growth - 4 + height >= static_cast<int>(lines.size()) * 13);
    return 0;
}
