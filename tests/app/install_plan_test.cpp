#include "app/install_plan.h"

#include "tests/rows.h"

namespace {

const CProductData catalogue;

std::string inWords(const InstallPlan& plan) {
    constexpr const char* routes[] = {"direct", "end silently", "hardware", "ordinary"};
    constexpr const char* older[] = {"", ", removes own", ", removes maker's"};
    constexpr const char* drivers[] = {"", ", drivers first", ", drivers instead"};
    return std::string(routes[static_cast<int>(plan.route)]) +
           older[static_cast<int>(plan.olderVersions)] +
           drivers[static_cast<int>(plan.driverStep)] + (plan.asksProductType ? ", asks" : "") +
           (plan.offersFileViewer ? " viewer" : "") + (plan.offersDemonstration ? " demo" : "");
}

// Install kind 0: no device family.
TEST(InstallPlan, FollowsTheDeviceFamilyAndTheProduct) {
    expectRows<std::tuple<std::string, std::uint32_t, std::size_t>, std::string>(
        {{{"1Q", 0, 0}, "direct"},
         {{"1q", 16, 1}, "direct"},
         {{"04", 0, 0}, "ordinary, removes own, asks viewer demo"},
         {{"04", 16, 1}, "hardware, drivers first, asks viewer demo"},
         {{"04", 16, 0}, "hardware, asks viewer demo"},
         {{"04", 8, 1}, "ordinary, removes own, drivers instead"},
         {{"04", 8, 0}, "ordinary, removes own, asks viewer demo"},
         {{"04", 2, 1}, "end silently"},
         {{"04", 1, 1}, "end silently"},
         {{"1w", 8, 1}, "ordinary, removes maker's, drivers instead"},
         {{"0q", 0, 0}, "ordinary, removes own, asks"},
         {{"1D", 16, 1}, "hardware, drivers first, asks"},  // editions go by the exact code
         {{"", 0, 0}, "ordinary, removes own, asks"}},
        [](const std::string& code, std::uint32_t installKind, std::size_t packages) {
            DriverPackageTable drivers;
            if (installKind != 0) {
                DeviceFamily& family = drivers[code == "1D" ? "1d" : code];
                family.installKind = installKind;
                family.packages.resize(packages);
            }
            return inWords(planInstallation(code, catalogue, drivers));
        });
    EXPECT_EQ(planInstallation("1W", catalogue, {}).productNumber, 60);
    EXPECT_EQ(planInstallation("", catalogue, {}).productNumber, -1);
}

}  // namespace
