#include "app/setup_request.h"

#include "app/setup_parameters.h"
#include "catalogue/product_code.h"

std::string programFolderName(CProductData& catalogue, const SetupRequest& request) {
    std::string name;
    catalogue.displayName(request.productCode, programFolderEdition(request.productType), name);
    return name;
}

std::string setupParameters(const CProductData& catalogue, const SetupRequest& request,
                            const std::string& programFolder) {
    const std::string bitness = setupBitness(
        catalogue.hasProcessorSpecificSetups(request.productCode), request.on64BitWindows);
    return composeSetupParameters({
        {"-build", catalogue.buildVersion()},
        {"-pid", request.productCode},
        {"-pf", programFolder},
        {"-type",
         productTypeWord(request.productType, request.productNumber, request.typeSuffix, bitness)},
        {"-bitness", bitness},
        {"-tmp", temporaryFolder(request.sourceDirectory)},
    });
}

std::string directSetupParameters(const CProductData& catalogue, const std::string& productCode,
                                  const std::string& sourceDirectory) {
    // The folder is the standards body's, whatever the product is called. No bitness: the viewer's
    // setup utility does not know the field.
    return composeSetupParameters({
        {"-build", catalogue.buildVersion()},
        {"-pid", productCode},
        {"-pf", "Bluetooth SIG"},
        {"-type", "LIVE"},
        {"-tmp", temporaryFolder(sourceDirectory)},
    });
}

bool switchToDemonstration(CProductData& catalogue, std::string& productCode,
                           std::string& productName, int& productNumber) {
    std::string demonstrationCode;
    if (!catalogue.demonstrationCode(productCode, demonstrationCode)) {
        return false;
    }
    productCode = demonstrationCode;
    catalogue.productName(productCode, productName);
    productNumber = numberFromCode(productCode);
    return true;
}
