#pragma once

#include "app/install_plan.h"
#include "app/machine.h"
#include "framework/application.h"
#include "installed/installation_index.h"

/// The application object: runs the whole installation in InitInstance and holds the run's state,
/// which only its own steps write.
class CInstallApp : public CWinApp {
  public:
    /// `machine` outlives the object; nothing is asked of it before InitInstance.
    explicit CInstallApp(Machine& machine);

    /// The install sequence from the command line to the launch of the setup utility. False: the
    /// run ended before that, and whatever there was to say has been shown.
    [[nodiscard]] bool InitInstance() override;

    // The steps, in their order. A step that says false has shown why.
    [[nodiscard]] bool ParseCommandLine(std::string& sourceDirectory,
                                        std::string& installDirectory);
    [[nodiscard]] bool CheckEnvironment();
    /// Reads the program's texts, the stamp and the build; sets the title and the prompt.
    void IdentifyProduct();
    /// The whole rest of the run for the free protocol viewer.
    void InstallDirectly();
    [[nodiscard]] bool PrepareHardwareFamily(const InstallPlan& plan);
    [[nodiscard]] bool PrepareOrdinaryProduct(const InstallPlan& plan);
    /// Whatever becomes of the older versions, the run goes on.
    void OfferUninstall(OlderVersions which);
    /// Shows a failure; the run goes on.
    void InstallDrivers();
    /// False when the user cancelled.
    [[nodiscard]] bool SelectProductType(const InstallPlan& plan);
    /// After the choice of a demonstration, its product replaces the stamped one.
    [[nodiscard]] bool SwitchToDemonstration();
    /// Shows a failure; there is nothing left to do after it.
    void LaunchSetup();

    /// The full path of "Setup.Exe", at most 260 characters; false when it is missing, after a
    /// message.
    [[nodiscard]] bool LocateSetupUtility(std::string& path);

    Machine& machine;
    int operatingSystemCode = operating_system_code::windowsXp;
    int productNumber = 0;
    std::string hardwarePrompt;
    std::string sourceDirectory;   ///< ends in a backslash
    std::string installDirectory;  ///< read from the command line; no step needs it any more
    std::string productName;
    std::string productCode;
    std::string selectionError;  ///< for a choice that ends without a usable result
    std::string typeSuffix;      ///< when not empty, follows the word "LIVE"
    InstallationIndex installationIndex;
    std::string prompt;
    std::string title;  ///< at most 260 characters
    unsigned productType = 0;
    DriverPackageTable driverPackages;
    const DeviceFamily* deviceFamily = nullptr;  ///< this product's, within driverPackages
    int selectionState = 5;  ///< 1 once the choice of the product type begins; no step reads it
    CProductData catalogue;
};
