#include "desk/computer/registry_export.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view input) {
    RegistryKeys keys;
    std::vector<std::string> problems;
    readRegistryExport(input, keys, problems);
    require(problems.size() <= 20);
    const std::string* before = nullptr;
    for (const auto& [path, values] : keys) {
        require(!path.empty() && path.find('\n') == std::string::npos);
        // A key stands in front of those below it, and no two are one.
        require(before == nullptr || (KeyPathOrder()(*before, path) && !isBelow(*before, path)));
        before = &path;
    }
}
