#include "desk/media/product_facts.h"

#include <algorithm>
#include <set>

#include "app/direct_install.h"
#include "app/setup_parameters.h"
#include "catalogue/product_code.h"
#include "catalogue/product_traits.h"
#include "desk/executables/stamp_image.h"
#include "drivers/driver_installation.h"
#include "platform/ansi_text.h"

namespace {

/// `code` as the catalogue has it.
ProductFacts factsOf(CProductData& catalogue, const std::string& code, const std::string& name) {
    DriverPackageTable drivers;
    buildDriverPackageTable(drivers);
    const InstallPlan plan = planInstallation(stampedCode(catalogue, code), catalogue, drivers);
    const auto full = catalogue.FullProductOf.find(code);
    // "viewer-only": no table says so, such a product is one in name alone.
    const char* const edition = traitsOf(code).freeViewer               ? "free viewer"
                                : catalogue.DemoProducts.contains(code) ? "demonstration"
                                : name.ends_with(" Viewer")             ? "viewer-only"
                                                                        : "full";
    ProductFacts facts{.code = stampedCode(catalogue, code),
                       .number = numberFromCode(code),
                       .name = name,
                       .edition = edition,
                       .demonstrationOf = full == catalogue.FullProductOf.end() ? "" : full->second,
                       .route = routeInWords(plan),
                       .endsSilently = plan.route == Route::EndSilently,
                       .setupsPerProcessor = catalogue.hasProcessorSpecificSetups(code)};
    for (const ProductChoice& choice : productChoices) {
        if ((plan.offeredTypes & choice.type) != 0) {
            facts.choices.emplace_back(choice.label);
        }
    }
    std::ranges::transform(neededFiles(plan), std::back_inserter(facts.files), &NeededFile::name);
    return facts;
}

}  // namespace

std::vector<ProductFacts> productFacts(const std::vector<std::string>& codes) {
    CProductData catalogue;
    std::set<std::string> chosen;
    for (const std::string& code : codes) {
        chosen.insert(stampedCode(catalogue, code));
    }
    std::vector<ProductFacts> all;
    for (const auto& [code, name] : catalogue.ProductNames) {
        if (codes.empty() || chosen.contains(stampedCode(catalogue, code))) {
            all.push_back(factsOf(catalogue, code, name));
        }
    }
    return all;
}

std::string folderOf(const std::string& code) {
    return lowerCase(code);
}

std::vector<NeededFile> neededFiles(const InstallPlan& plan) {
    std::vector<NeededFile> files;
    if (plan.route == Route::EndSilently) {
        return files;
    }
    if (plan.route == Route::Direct) {
        files.push_back({replacementUninstallerFile, "removes older viewers"});
    } else if (plan.deviceFamily != nullptr) {
        files.push_back({extractionToolFile, "unpacks the driver archives"});
        for (const DriverPackage& package : plan.deviceFamily->packages) {
            files.push_back({package.archive, "drivers; the archive's form is not looked into"});
        }
    }
    files.push_back({setupUtilityFile, "installs the product"});
    return files;
}

std::string routeInWords(const InstallPlan& plan) {
    switch (plan.route) {
        case Route::Direct:
            return "older viewers are stopped and removed, then the viewer is installed";
        case Route::EndSilently:
            return "ends silently, nothing is installed";
        case Route::HardwareFamily:
            return "drivers, then \"Install Product\"";
        case Route::Ordinary:
            break;
    }
    return plan.offeredTypes != 0
               ? "older versions, then \"Install Product\""
               : "older versions, then drivers, then the live product without a question";
}
