#include "drivers/driver_package_table.h"

#include "drivers/driver_installation.h"
#include "tests/rows.h"

using namespace operating_system_code;

TEST(DriverPackageTable, HasPackagesForEveryReleaseFromXp) {
    DriverPackageTable table;
    EXPECT_TRUE(buildDriverPackageTable(table));
    for (const auto& [code, family] : table) {
        EXPECT_EQ(family.packages.size(), code == "1r" || code == "1u" ? 2u : 1u) << code;
        for (const DriverPackage& package : family.packages) {
            EXPECT_TRUE(package.runInstaller) << code;
            for (int release = notRecognised; release <= unknownNewer; ++release) {
                EXPECT_EQ(appliesTo(package, release),
                          release >= windowsXp && release < unknownNewer)
                    << code << " on " << release;
            }
        }
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
