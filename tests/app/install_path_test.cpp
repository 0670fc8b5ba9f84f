#include "app/install_path.h"

#include <gtest/gtest.h>

#include "app/install_messages.h"
#include "catalogue/contact_text.h"

namespace {

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
    EXPECT_TRUE(isDirectInstallEdition("1q") && isDirectInstallEdition("1Q"));
    EXPECT_FALSE(isDirectInstallEdition("1r"));
}

TEST(InstallMessages, Texts) {
    EXPECT_EQ(installTitle("Model X", "1.2.3.4"), "Model X 1.2.3.4 Installation");
    EXPECT_EQ(installTitle(std::string(300, 'x'), "").size(), 260u);
    EXPECT_EQ(driversFailedMessage("Model X", "No data key specified.").text,
              "Device drivers for Model X were not found and extraction failed:\n\n"
              "No data key specified.");
    // Product 1d has no demonstration; the dialog never offers the choice.
    EXPECT_EQ(invalidInstallerMessage("1d").text,
              "This installer is invalid. Please contact Technical Support.\n\n" +
                  contactText("1d", ContactLayout::Lines));
}

}  // namespace
