#include "app/install_plan.h"

#include "catalogue/product_code.h"
#include "catalogue/product_traits.h"
#include "platform/ansi_text.h"

namespace {

Route routeOf(const DeviceFamily* family) {
    if (family == nullptr || family->installKind == install_kind::liveOnly) {
        return Route::Ordinary;
    }
    return family->installKind == install_kind::beforeProductType ? Route::HardwareFamily
                                                                  : Route::EndSilently;
}

}  // namespace

InstallPlan planInstallation(std::string_view productCode, const CProductData& catalogue,
                             const DriverPackageTable& drivers) {
    InstallPlan plan;
    plan.productNumber = numberFromCode(productCode);
    if (traitsOf(productCode).freeViewer) {
        plan.route = Route::Direct;
        return plan;
    }
    plan.deviceFamily = findDeviceFamily(drivers, lowerCase(productCode));
    plan.route = routeOf(plan.deviceFamily);
    if (plan.route == Route::Ordinary) {
        plan.olderVersions = traitsOf(plan.productNumber).replacesMakerProducts
                                 ? OlderVersions::OfMaker
                                 : OlderVersions::OfProduct;
    }
    if (plan.route == Route::HardwareFamily || plan.deviceFamily == nullptr) {
        plan.offeredTypes =
            product_type::live |
            (catalogue.hasFileViewerEdition(productCode) ? product_type::viewer : 0) |
            (catalogue.hasDemonstrationEdition(productCode) ? product_type::demonstration : 0);
    }
    return plan;
}
