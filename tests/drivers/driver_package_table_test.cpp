#include "drivers/driver_package_table.h"

#include <gtest/gtest.h>

namespace {

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
    const std::vector<int> codes = {9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23};
    DriverPackageTable table;
    EXPECT_TRUE(buildDriverPackageTable(table));
    EXPECT_TRUE(buildDriverPackageTable(table));
    EXPECT_EQ(table.size(), 6u);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.code);
        const DeviceFamily* family = findDeviceFamily(table, row.code);
        ASSERT_NE(family, nullptr);
        EXPECT_STREQ(family->dataKey, "Kq7vR2mXp9Lz4Wc1");
        EXPECT_EQ(family->installKind, row.installKind);
        EXPECT_EQ(family->familyWord, row.familyWord);
        std::vector<std::string> archives;
        for (const DriverPackage& package : family->packages) {
            archives.push_back(package.archive);
            EXPECT_TRUE(package.runInstaller);
            EXPECT_EQ(package.operatingSystemCodes, codes);
            EXPECT_EQ(package.targetFolder, "#PROGRAM_FILES#\\Halvick Test System II\\Drivers\\");
        }
        EXPECT_EQ(archives, row.archives);
    }
    EXPECT_EQ(findDeviceFamily(table, "1K"), nullptr);
    EXPECT_EQ(findDeviceFamily(table, "1q"), nullptr);
}

TEST(DriverPackageTable, SkipsWhatIsNoFamily) {
    struct {
        const char* list;
        std::size_t families;
    } const rows[] = {
        {"16;1K;1M;1R;1U;1W;", 6},
        {";;16;;1k;zz;1M;1R;;1u;1W;;", 6},
        {"1w", 1},
        {"16;16", 1},
        {" 16;1", 0},
        {";", 0},
        {"", 0},
    };
    for (const auto& row : rows) {
        DriverPackageTable table;
        EXPECT_EQ(buildDriverPackageTable(table, row.list), row.families > 0) << row.list;
        EXPECT_EQ(table.size(), row.families) << row.list;
    }
}

}  // namespace
