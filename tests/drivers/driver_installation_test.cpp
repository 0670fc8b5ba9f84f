#include <gtest/gtest.h>

#include "drivers/driver_installation_win.h"

namespace {

TEST(DriverInstallation, NeedsAKeyOnceThereIsAPackage) {
    std::string error = "earlier";
    EXPECT_TRUE(installDrivers("C:\\", {}, nullptr, error));
    EXPECT_EQ(error, "");
    EXPECT_FALSE(installDrivers("C:\\", {{true, {9999}, "a", "t"}}, nullptr, error));
    EXPECT_EQ(error, "No data key specified.");
}

}  // namespace
