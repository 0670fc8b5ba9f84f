#include "app/install_plan.h"

#include <gtest/gtest.h>

namespace {

const CProductData catalogue;

std::string inWords(const InstallPlan& plan) {
    constexpr const char* routes[] = {"direct", "end silently", "hardware", "ordinary"};
    constexpr const char* older[] = {"", ", removes own", ", removes maker's"};
    constexpr const char* drivers[] = {"", ", drivers first", ", drivers instead"};
    return std::string(routes[static_cast<int>(plan.route)]) +
           older[static_cast<int>(plan.olderVersions)] +
           drivers[static_cast<int>(plan.driverStep)] + (plan.offeredTypes != 0 ? ", asks" : "") +
           ((plan.offeredTypes & product_type::viewer) != 0 ? " viewer" : "") +
           ((plan.offeredTypes & product_type::demonstration) != 0 ? " demo" : "");
}

constexpr std::uint32_t noFamily = 0;

TEST(InstallPlan, FollowsTheDeviceFamilyAndTheProduct) {
    namespace kind = install_kind;
    const struct {
        std::string code;
        std::uint32_t installKind;
        std::size_t packages;
        std::string plan;
    } rows[] = {{"1Q", noFamily, 0, "direct"},
                {"1q", kind::beforeProductType, 1, "direct"},
                {"04", noFamily, 0, "ordinary, removes own, asks viewer demo"},
                {"04", kind::beforeProductType, 1, "hardware, drivers first, asks viewer demo"},
                {"04", kind::beforeProductType, 0, "hardware, asks viewer demo"},
                {"04", kind::liveOnly, 1, "ordinary, removes own, drivers instead"},
                {"04", kind::liveOnly, 0, "ordinary, removes own, asks viewer demo"},
                {"04", kind::endSilently, 1, "end silently"},
                {"04", 1, 1, "end silently"},
                {"1w", kind::liveOnly, 1, "ordinary, removes maker's, drivers instead"},
                {"0q", noFamily, 0, "ordinary, removes own, asks"},
                // Editions go by the exact code.
                {"1D", kind::beforeProductType, 1, "hardware, drivers first, asks"},
                {"", noFamily, 0, "ordinary, removes own, asks"}};
    for (const auto& row : rows) {
        DriverPackageTable drivers;
        if (row.installKind != noFamily) {
            DeviceFamily& family = drivers[row.code == "1D" ? "1d" : row.code];
            family.installKind = row.installKind;
            family.packages.resize(row.packages);
        }
        EXPECT_EQ(inWords(planInstallation(row.code, catalogue, drivers)), row.plan) << row.code;
    }
    EXPECT_EQ(planInstallation("1W", catalogue, {}).productNumber, 60);
    EXPECT_EQ(planInstallation("", catalogue, {}).productNumber, -1);
}

}  // namespace
