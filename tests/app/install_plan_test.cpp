#include "app/install_plan.h"

#include <gtest/gtest.h>

namespace {

std::string inWords(const InstallPlan& plan) {
    constexpr const char* roads[] = {"direct", "end silently", "hardware", "ordinary"};
    constexpr const char* older[] = {"", ", removes own", ", removes maker's"};
    constexpr const char* drivers[] = {"", ", drivers first", ", drivers instead"};
    return std::string(roads[static_cast<int>(plan.road)]) +
           older[static_cast<int>(plan.olderVersions)] +
           drivers[static_cast<int>(plan.driverStep)] + (plan.asksProductType ? ", asks" : "") +
           (plan.offersFileViewer ? " viewer" : "") + (plan.offersDemonstration ? " demo" : "");
}

TEST(InstallPlan, FollowsTheDeviceFamilyAndTheProduct) {
    const CProductData catalogue;
    const struct {
        const char* code;
        std::uint32_t installKind;  // 0: no device family
        std::size_t packages;
        const char* plan;
    } rows[] = {
        {"1Q", 0, 0, "direct"},
        {"1q", 16, 1, "direct"},
        {"04", 0, 0, "ordinary, removes own, asks viewer demo"},
        {"04", 16, 1, "hardware, drivers first, asks viewer demo"},
        {"04", 16, 0, "hardware, asks viewer demo"},
        {"04", 8, 1, "ordinary, removes own, drivers instead"},
        {"04", 8, 0, "ordinary, removes own, asks viewer demo"},
        {"04", 2, 1, "end silently"},
        {"04", 1, 1, "end silently"},
        {"1w", 8, 1, "ordinary, removes maker's, drivers instead"},
        {"0q", 0, 0, "ordinary, removes own, asks"},
        {"1D", 16, 1, "hardware, drivers first, asks"},  // editions go by the exact code
        {"", 0, 0, "ordinary, removes own, asks"},
    };
    for (const auto& row : rows) {
        DriverPackageTable drivers;
        if (row.installKind != 0) {
            std::string code = row.code;
            drivers[code == "1D" ? "1d" : code].installKind = row.installKind;
            drivers.begin()->second.packages.resize(row.packages);
        }
        EXPECT_EQ(inWords(planInstallation(row.code, catalogue, drivers)), row.plan)
            << row.code << ", install kind " << row.installKind << ", packages " << row.packages;
    }
    EXPECT_EQ(planInstallation("1W", catalogue, {}).productNumber, 60);
    EXPECT_EQ(planInstallation("", catalogue, {}).productNumber, -1);
}

}  // namespace
