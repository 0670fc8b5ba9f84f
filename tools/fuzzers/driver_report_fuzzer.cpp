#include "drivers/driver_extraction.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view rest = asText(data, size);
    const std::string folder(takeText(rest));
    for (const char* name : {driverInstallerName(false), driverInstallerName(true)}) {
        const std::optional<std::string> path = reportedInstaller(rest, folder, name);
        if (path) {
            const std::size_t found = rest.find(name);
            require(found != std::string_view::npos && rest.rfind('"', found) < found);
            require(path->starts_with(folder.substr(0, 260)) && path->size() <= 260);
            require(path->size() == 260 || path->ends_with(name));
        } else {
            const std::size_t found = rest.find(name);
            require(found == std::string_view::npos || found == 0 || rest[found - 1] != '"');
        }
    }
    return 0;
}
