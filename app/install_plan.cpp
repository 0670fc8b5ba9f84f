#include "app/install_plan.h"

#include "catalogue/product_code.h"
#include "catalogue/product_traits.h"
#include "platform/ansi_text.h"

namespace {

Road roadOf(const DeviceFamily* family) {
    if (family == nullptr || family->installKind == install_kind::liveOnly) {
        return Road::Ordinary;
    }
    return family->installKind == install_kind::beforeProductType ? Road::HardwareFamily
                                                                  : Road::EndSilently;
}

DriverStep driverStepOf(const DeviceFamily* family) {
    if (family == nullptr || family->packages.empty()) {
        return DriverStep::None;
    }
    return family->installKind == install_kind::liveOnly ? DriverStep::InPlaceOfChoice
                                                         : DriverStep::BeforeChoice;
}

}  // namespace

InstallPlan planInstallation(std::string_view productCode, const CProductData& catalogue,
                             const DriverPackageTable& drivers) {
    InstallPlan plan;
    if (traitsOf(productCode).freeViewer) {
        plan.road = Road::Direct;
        return plan;
    }
    plan.productNumber = numberFromCode(productCode);
    plan.deviceFamily = findDeviceFamily(drivers, lowerCase(productCode));
    plan.road = roadOf(plan.deviceFamily);
    if (plan.road == Road::EndSilently) {
        return plan;
    }
    plan.driverStep = driverStepOf(plan.deviceFamily);
    if (plan.road == Road::Ordinary) {
        plan.olderVersions = traitsOf(plan.productNumber).replacesMakerProducts
                                 ? OlderVersions::OfMaker
                                 : OlderVersions::OfProduct;
    }
    plan.asksProductType = plan.driverStep != DriverStep::InPlaceOfChoice;
    if (plan.asksProductType) {
        plan.offersFileViewer = catalogue.hasFileViewerEdition(productCode);
        plan.offersDemonstration = catalogue.hasDemonstrationEdition(productCode);
    }
    return plan;
}
