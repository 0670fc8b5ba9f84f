#include <gtest/gtest.h>

#include "installed/installed_product.h"

TEST(ReportedVersion, NeedsFourFieldsAndMoreThanTen) {
    for (const char* version : {"11.0.0.0", "11.0.0.0.", "16.4.10002.0", "011.1.1.1"}) {
        EXPECT_TRUE(isReportedVersion(version)) << version;
    }
    for (const char* version : {"10.9.1", "10.9.9.9", "11.0", "11.0.0", "11..0.0", "11.0.0.0.0",
                                " 11.0.0.0", "v11.0.0.0", ""}) {
        EXPECT_FALSE(isReportedVersion(version)) << version;
    }
}
