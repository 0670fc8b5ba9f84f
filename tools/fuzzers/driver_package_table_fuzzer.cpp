#include "drivers/driver_package_table.h"
#include "platform/ansi_text.h"
#include "tools/fuzzers/fuzz_input.h"

void fuzz(std::string_view input) {
    const std::string list(input);
    DriverPackageTable table;
    require(buildDriverPackageTable(table, list) == !table.empty());
    require(table.size() <= 6);
    const std::string separated = ';' + lowerCase(list) + ';';
    for (const auto& [code, family] : table) {
        require(separated.find(';' + code + ';') != std::string::npos);
        require(findDeviceFamily(table, code) == &family);
        require(family.dataKey != nullptr && !family.packages.empty());
    }
    for (const char* const code : {"16", "1k", "1m", "1r", "1u", "1w"}) {
        require((findDeviceFamily(table, code) != nullptr) ==
                (separated.find(';' + std::string(code) + ';') != std::string::npos));
    }
}
