#include "drivers/driver_package_table.h"

#include <iterator>
#include <numeric>

#include "platform/operating_system.h"
#include "tests/rows.h"

namespace code = operating_system_code;

TEST(DriverPackageTable, HoldsTheFamilies) {
    namespace kind = install_kind;
    using Archives = std::vector<std::string>;
    const std::string corvane = "CorvaneTavlinkDrivers.fzx", usb = "CSRUSBSPIDrivers.fzx",
                      serial = "SerialTavlinkDrivers.fzx";
    const struct {
        std::string code, word;
        std::uint32_t installKind;
        Archives archives;
    } families[] = {{"16", "Bluetooth", kind::endSilently, {"BluetoothTavlinkDrivers_Signed.fzx"}},
                    {"1k", "Serial", kind::beforeProductType, {serial}},
                    {"1m", "Serial", kind::beforeProductType, {serial}},
                    {"1r", "low energy", kind::endSilently, {"leTavlinkDrivers.fzx", usb}},
                    {"1u", "Corvane", kind::endSilently, {corvane, usb}},
                    {"1w", "Multiple Tavlinks", kind::liveOnly, {corvane}}};
    std::vector<int> everyReleaseFromXp(code::server10 - code::windowsXp + 1);
    std::iota(everyReleaseFromXp.begin(), everyReleaseFromXp.end(), code::windowsXp);
    DriverPackageTable table;
    EXPECT_TRUE(buildDriverPackageTable(table));
    EXPECT_EQ(table.size(), std::size(families));
    for (const auto& row : families) {
        const DeviceFamily* const family = findDeviceFamily(table, row.code);
        ASSERT_NE(family, nullptr) << row.code;
        EXPECT_EQ(family->familyWord, row.word);
        EXPECT_EQ(family->installKind, row.installKind) << row.word;
        EXPECT_EQ(std::string(family->dataKey).size(), 16u) << row.word;
        Archives archives;
        for (const DriverPackage& package : family->packages) {
            archives.push_back(package.archive);
            EXPECT_TRUE(package.runInstaller) << package.archive;
            EXPECT_EQ(package.operatingSystemCodes, everyReleaseFromXp) << package.archive;
            EXPECT_TRUE(package.targetFolder.starts_with("#PROGRAM_FILES#\\")) << package.archive;
        }
        EXPECT_EQ(archives, row.archives) << row.word;
    }
    EXPECT_EQ(findDeviceFamily(table, "1K"), nullptr);
}

TEST(DriverPackageTable, SkipsWhatIsNoFamily) {
    DriverPackageTable table;
    expectRows<std::string, std::size_t>({{";;16;;1k;zz;1M;1R;;1u;1W;;", 6},
                                          {"1w", 1},
                                          {"16;16", 1},
                                          {" 16;1", 0},
                                          {";", 0},
                                          {"", 0}},
                                         [&table](const std::string& codes) {
                                             const bool any = buildDriverPackageTable(table, codes);
                                             EXPECT_EQ(any, !table.empty());
                                             return table.size();
                                         });
}
