#include "drivers/driver_installation_win.h"

#include <gtest/gtest.h>

TEST(DriverInstallation, NeedsAKeyOnceThereIsAPackage) {
    std::string error = "earlier";
    EXPECT_TRUE(installDrivers("C:\\", {}, nullptr, error));
    EXPECT_EQ(error, "");
    EXPECT_FALSE(installDrivers("C:\\", {{}}, nullptr, error));
    EXPECT_EQ(error, "No data key specified.");
}
