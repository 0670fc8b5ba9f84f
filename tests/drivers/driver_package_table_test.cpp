#include "drivers/driver_package_table.h"

#include <gtest/gtest.h>

TEST(DriverPackageTable, HoldsTheFamilies) {
    struct {
        const char *code, *familyWord;
        unsigned installKind;
        std::vector<std::string> archives;
    } const rows[] = {
        {"16", "Bluetooth", 2, {"BluetoothTavlinkDrivers_Signed.fzx"}},
        {"1k", "Serial", 16, {"SerialTavlinkDrivers.fzx"}},
        {"1m", "Serial", 16, {"SerialTavlinkDrivers.fzx"}},
        {"1r", "low energy", 2, {"leTavlinkDrivers.fzx", "CSRUSBSPIDrivers.fzx"}},
        {"1u", "Corvane", 2, {"CorvaneTavlinkDrivers.fzx", "CSRUSBSPIDrivers.fzx"}},
        {"1w", "Multiple Tavlinks", 8, {"CorvaneTavlinkDrivers.fzx"}},
    };
    DriverPackageTable table;
    EXPECT_TRUE(buildDriverPackageTable(table));
    EXPECT_EQ(table.size(), 6u);
    for (const auto& row : rows) {
        const DeviceFamily* family = findDeviceFamily(table, row.code);
        ASSERT_NE(family, nullptr) << row.code;
        EXPECT_STREQ(family->dataKey, "Kq7vR2mXp9Lz4Wc1");
        EXPECT_EQ(family->installKind, row.installKind) << row.code;
        EXPECT_EQ(family->familyWord, row.familyWord);
        ASSERT_EQ(family->packages.size(), row.archives.size()) << row.code;
        for (std::size_t index = 0; index < row.archives.size(); ++index) {
            const DriverPackage& package = family->packages[index];
            EXPECT_EQ(package.archive, row.archives[index]);
            EXPECT_TRUE(package.runInstaller);
            EXPECT_EQ(package.operatingSystemCodes,
                      (std::vector{9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23}));
            EXPECT_EQ(package.targetFolder, "#PROGRAM_FILES#\\Halvick Test System II\\Drivers\\");
        }
    }
    EXPECT_EQ(findDeviceFamily(table, "1K"), nullptr);

    // Empties what was there, and skips what is no family.
    const std::pair<const char*, std::size_t> lists[] = {
        {";;16;;1k;zz;1M;1R;;1u;1W;;", 6}, {"1w", 1}, {"16;16", 1}, {" 16;1", 0}, {";", 0}, {"", 0},
    };
    for (const auto& [list, families] : lists) {
        EXPECT_EQ(buildDriverPackageTable(table, list), families > 0) << list;
        EXPECT_EQ(table.size(), families) << list;
    }
}
