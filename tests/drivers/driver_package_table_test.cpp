#include "drivers/driver_package_table.h"

#include <numeric>

#include "tests/rows.h"

// Code, word, install kind and number of packages; the archives' names are seen end to end.
TEST(DriverPackageTable, HoldsTheFamilies) {
    DriverPackageTable table;
    EXPECT_TRUE(buildDriverPackageTable(table));
    std::vector<int> systems(15);
    std::iota(systems.begin(), systems.end(), 9);
    std::string families;
    std::map<std::string, std::string> users;
    for (const auto& [code, family] : table) {
        families += code + ' ' + family.familyWord + ':' + std::to_string(family.installKind) +
                    ':' + std::to_string(family.packages.size()) + ' ';
        EXPECT_EQ(std::string(family.dataKey).size(), 16u);
        for (const DriverPackage& package : family.packages) {
            EXPECT_TRUE(package.runInstaller && package.archive.ends_with(".fzx"));
            EXPECT_EQ(package.operatingSystemCodes, systems);
            EXPECT_TRUE(package.targetFolder.starts_with("#PROGRAM_FILES#\\")) << code;
            users[package.archive] += code;
        }
    }
    EXPECT_EQ(families,
              "16 Bluetooth:2:1 1k Serial:16:1 1m Serial:16:1 1r low energy:2:2 1u Corvane:2:2 "
              "1w Multiple Tavlinks:8:1 ");
    std::string sharing;
    for (const auto& [archive, codes] : users) {
        sharing += codes + ' ';
    }
    EXPECT_EQ(sharing, "16 1r1u 1u1w 1k1m 1r ");
    EXPECT_EQ(findDeviceFamily(table, "1k"), &table.at("1k"));
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
