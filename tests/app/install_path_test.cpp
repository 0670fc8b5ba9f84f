#include "app/install_plan.h"

#include <gtest/gtest.h>

TEST(InstallPath, FollowsTheInstallKind) {
    struct {
        std::uint32_t kind;
        bool packages;
        InstallPath path;
        bool liveOnly;
    } const cases[] = {
        {16, true, InstallPath::HardwareFamily, false}, {8, true, InstallPath::Ordinary, true},
        {8, false, InstallPath::Ordinary, false},       {2, true, InstallPath::EndSilently, false},
        {0, true, InstallPath::EndSilently, false},
    };
    for (const auto& row : cases) {
        DeviceFamily family;
        family.installKind = row.kind;
        family.packages.resize(row.packages ? 1 : 0);
        EXPECT_EQ(installPath(&family), row.path) << row.kind;
        EXPECT_EQ(isLiveOnly(&family), row.liveOnly) << row.kind;
    }
    EXPECT_EQ(installPath(nullptr), InstallPath::Ordinary);
    EXPECT_FALSE(isLiveOnly(nullptr));
    EXPECT_TRUE(replacesMakerProducts(60));
    EXPECT_FALSE(replacesMakerProducts(59));
    EXPECT_TRUE(isDirectInstallEdition("1q") && isDirectInstallEdition("1Q"));
    EXPECT_FALSE(isDirectInstallEdition("1r"));
}
