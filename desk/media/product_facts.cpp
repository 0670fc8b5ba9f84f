#include "desk/media/product_facts.h"

#include "catalogue/product_code.h"
#include "catalogue/product_traits.h"
#include "desk/executables/stamp_image.h"
#include "desk/media/media_report.h"
#include "drivers/driver_package_table.h"
#include "ui/product_type.h"

namespace {

std::string editionOf(const CProductData& catalogue, const std::string& code,
                      const std::string& name) {
    if (traitsOf(code).freeViewer) {
        return "free viewer";
    }
    if (catalogue.DemoProducts.contains(code)) {
        return "demonstration";
    }
    // No table says so: such a product is one in name alone.
    return name.ends_with(" Viewer") ? "viewer-only" : "full";
}

}  // namespace

ProductFacts productFacts(CProductData& catalogue, const std::string& code) {
    ProductFacts facts;
    facts.code = chooseStampedCode(catalogue, code).code;
    facts.number = numberFromCode(code);
    facts.name = catalogue.ProductNames.find(code)->second;
    facts.edition = editionOf(catalogue, code, facts.name);
    if (const auto full = catalogue.FullProductOf.find(code);
        full != catalogue.FullProductOf.end()) {
        facts.demonstrationOf = full->second;
    }
    DriverPackageTable drivers;
    buildDriverPackageTable(drivers);
    const InstallPlan plan = planInstallation(facts.code, catalogue, drivers);
    facts.route = routeInWords(plan);
    facts.endsSilently = plan.route == Route::EndSilently;
    for (const ProductChoice& choice : productChoices) {
        if ((plan.offeredTypes & choice.type) != 0) {
            facts.choices.emplace_back(choice.label);
        }
    }
    for (const NeededFile& file : neededFiles(plan)) {
        facts.files.push_back(file.name);
    }
    facts.setupsPerProcessor = catalogue.hasProcessorSpecificSetups(code);
    return facts;
}

std::vector<ProductFacts> allProductFacts() {
    CProductData catalogue;
    std::vector<ProductFacts> all;
    for (const auto& [code, name] : catalogue.ProductNames) {
        all.push_back(productFacts(catalogue, code));
    }
    return all;
}
