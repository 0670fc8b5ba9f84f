#include "drivers/driver_package_table.h"
#include "platform/ansi_text.h"
#include "tools/fuzzers/fuzz_input.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    DriverPackageTable table;
    const bool built = buildDriverPackageTable(table, std::string(asText(data, size)));
    require(built == !table.empty() && table.size() <= 6);
    for (const auto& [code, family] : table) {
        require(code == lowerCase(code) && code.size() == 2 && !family.packages.empty());
        require(findDeviceFamily(table, code) == &family);
    }
    return 0;
}
