#pragma once

#include <string>

#include "catalogue/product_data.h"
#include "catalogue/product_data_file.h"
#include "drivers/driver_package_table.h"
#include "framework/win_app.h"
#include "installed/installation_index.h"
#include "platform/operating_system.h"

/// The application object: runs the whole installation in InitInstance and holds the run's state,
/// which only its own steps write.
class CInstallApp : public CWinApp {
  public:
    CInstallApp();

    /// The install sequence from the command line to the hand-over. False: the run ended before
    /// the hand-over, and whatever there was to say has been shown.
    bool InitInstance() override;

    // The steps, in their order. A step that says false has shown why.
    bool ParseCommandLine(std::string& sourceDirectory, std::string& installDirectory);
    bool CheckEnvironment();
    /// Reads the program's texts, the stamp and the build; sets the title and the prompt.
    void IdentifyProduct();
    /// The whole rest of the run for the free protocol viewer.
    void InstallDirectly();
    bool PrepareHardwareFamily();
    bool PrepareOrdinary();
    /// Whatever becomes of the older versions, the run goes on.
    void OfferUninstall();
    /// Shows a failure; the run goes on.
    void InstallDrivers();
    /// False when the user cancelled. With `liveOnly` nobody is asked.
    bool SelectProductType(bool refreshPrompt, bool liveOnly);
    /// After the choice of a demonstration, its product replaces the stamped one.
    bool SwitchToDemonstration();
    /// Shows a failure; there is nothing left to do after it.
    void LaunchSetup();

    /// Looks for the product-data file until it has been loaded; a file that is missing is none.
    void ReadProductData();

    int operatingSystemCode = operating_system_code::windowsXp;
    int productNumber = 0;
    std::string hardwarePrompt;
    std::string sourceDirectory;  ///< ends in a backslash
    std::string installDirectory;
    std::string productName;
    std::string productCode;
    std::string selectionError;  ///< shown when the choice ends without a usable result
    std::string typeSuffix;      ///< when not empty, follows the word "LIVE"
    ProductDataFile productData;
    InstallationIndex installationIndex;
    std::string prompt;
    std::string title;  ///< at most 260 characters
    unsigned productType = 0;
    DriverPackageTable driverPackages;
    const DeviceFamily* deviceFamily = nullptr;  ///< this product's, within driverPackages
    int selectionState = 5;                      ///< 1 once the choice of the product type begins
    CProductData catalogue;
};
