#include "drivers/driver_installation.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view report) {
    const std::string_view name = driverInstallerName(report.size() % 2 != 0);
    const std::size_t found = report.find(name);
    const std::optional<std::string> path = reportedInstaller(report, "D", name);
    if (!path) {
        // Only a report without the name, or with no open quote in front of it, names nothing.
        require(found == std::string_view::npos ||
                report.substr(0, found).find_last_of('"') == std::string_view::npos ||
                report.substr(report.substr(0, found).find_last_of('"'), found).find('\0') !=
                    std::string_view::npos);
        return;
    }
    require(path->starts_with("D\\") && path->size() <= 260);
    require(path->find('"') == std::string::npos && path->find('\0') == std::string::npos);
    require(path->size() == 260 || path->ends_with(name));
    require(report.substr(0, found + name.size()).find(path->substr(2)) != std::string_view::npos);
}
