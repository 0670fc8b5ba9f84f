#include <gtest/gtest.h>

#include "app/message.h"
#include "catalogue/contact_text.h"

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
