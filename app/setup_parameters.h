// What the product's setup utility is handed: one parameter string, composed from the decisions
// made so far.
#pragma once

#include "catalogue/product_catalogue.h"
#include "installed/installation_index.h"

/// In the source directory.
inline constexpr const char* setupUtilityFile = "Setup.Exe";

/// What a run has decided when it comes to the launch.
struct SetupRequest {
    std::string productCode = {};
    int productNumber = 0;
    unsigned productType = 0;     ///< one bit of product_type
    std::string typeSuffix = {};  ///< may be empty
    std::string sourceDirectory = {};
    bool on64BitWindows = false;
};

/// "/hide_usd " and the fields of the request, each closed by a backquote, the last included, no
/// quoting or escaping; cut to 2048 characters. `programFolder` is the final name.
[[nodiscard]] std::string setupParameters(const CProductData& catalogue,
                                          const SetupRequest& request,
                                          const std::string& programFolder);

/// The shorter string of the edition that is installed directly.
[[nodiscard]] std::string directSetupParameters(const CProductData& catalogue,
                                                const std::string& productCode,
                                                const std::string& sourceDirectory);

/// The name of the program folder, before the maker's name and a number are added.
[[nodiscard]] std::string programFolderName(CProductData& catalogue, const SetupRequest& request);

/// The first name, in the order of the numbers (which begin at 2), that no installation in `index`
/// has for its program folder. A name that is so long that its number is cut off is given up on and
/// returned although it is taken.
[[nodiscard]] std::string uniqueProgramFolder(const std::string& folderName, int productNumber,
                                              InstallationIndex& index);
