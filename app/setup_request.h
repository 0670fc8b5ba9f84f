// From the decisions of a run to what the setup utility is handed. Also asked by the media checker.
#pragma once

#include <string>

#include "catalogue/product_data.h"

/// What a run has decided when it comes to the hand-over.
struct SetupRequest {
    std::string productCode;
    int productNumber = 0;
    unsigned productType = 0;  ///< one bit of product_type
    std::string typeSuffix;    ///< may be empty
    std::string sourceDirectory;
    bool on64BitWindows = false;
};

/// The name of the program folder, before the maker's name and a number are added.
std::string programFolderName(CProductData& catalogue, const SetupRequest& request);

/// The parameter string; `programFolder` is the final name.
std::string setupParameters(const CProductData& catalogue, const SetupRequest& request,
                            const std::string& programFolder);

/// The shorter string of the edition that is installed directly.
std::string directSetupParameters(const CProductData& catalogue, const std::string& productCode,
                                  const std::string& sourceDirectory);

/// Replaces a product by its demonstration edition. False, with nothing changed, when it has none.
bool switchToDemonstration(CProductData& catalogue, std::string& productCode,
                           std::string& productName, int& productNumber);
