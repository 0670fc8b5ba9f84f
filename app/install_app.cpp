// One run of the installer, from the first check to the launch of the product's own setup utility;
// read it top to bottom.
//
// Started elevated from the installation media with "-dir", the program makes sure that it may
// install on this Windows, finds out which product it was stamped for and which build the media
// hold, and plans its route. The free viewer is installed without a question (direct_install.cpp).
// Families of capture hardware get their drivers first, every other product is first offered the
// removal of its older versions; then the user chooses the live product, the file viewer or the
// demonstration. At the end "Setup.Exe" is started with one parameter string that holds all that
// was decided, and the program ends without waiting for it. Whatever goes wrong is told where it is
// found, and a step that says false ends the run.
#include "app/install_app.h"

#include <algorithm>
#include <tuple>

#include "app/command_line.h"
#include "app/environment.h"
#include "app/messages.h"
#include "app/setup_parameters.h"
#include "catalogue/product_code.h"
#include "catalogue/product_data_loading.h"
#include "catalogue/program_texts.h"
#include "drivers/driver_installation.h"
#include "platform/format_text.h"

CInstallApp::CInstallApp(Machine& machine)
    : CWinApp(applicationName), machine(machine), installationIndex(machine) {}

bool CInstallApp::InitInstance() {
    CWinApp::InitInstance();
    if (!ParseCommandLine(sourceDirectory, installDirectory) || !CheckEnvironment()) {
        return false;
    }
    IdentifyProduct();

    buildDriverPackageTable(driverPackages);
    const InstallPlan plan = planInstallation(productCode, catalogue, driverPackages);
    if (plan.route == Route::Direct) {
        productType = product_type::live;
        InstallDirectly();
        return true;
    }
    deviceFamily = plan.deviceFamily;
    productNumber = plan.productNumber;
    if (plan.route == Route::EndSilently) {
        return false;
    }
    const bool prepared = plan.route == Route::HardwareFamily ? PrepareHardwareFamily(plan)
                                                              : PrepareOrdinaryProduct(plan);
    if (!prepared || !SwitchToDemonstration()) {
        return false;
    }
    LaunchSetup();
    return true;
}

bool CInstallApp::ParseCommandLine(std::string& sourceDirectory, std::string& installDirectory) {
    const std::optional<Message> error =
        parseCommandLine(machine.arguments(), machine, sourceDirectory, installDirectory);
    if (error) {
        machine.showMessage(*error);
    }
    return !error;
}

bool CInstallApp::CheckEnvironment() {
    if (!machine.isAdministrator()) {
        machine.showMessage(notAdministratorMessage());
        return false;
    }
    char name[256] = "";
    operatingSystemCode = operatingSystemName(machine, name, sizeof name);
    const EnvironmentPolicy policy = environmentPolicy(operatingSystemCode, name);
    const bool agreed = !policy.message || machine.showMessage(*policy.message);
    return policy.accepted && agreed;
}

void CInstallApp::IdentifyProduct() {
    const ProgramTexts texts = readProgramTexts();
    hardwarePrompt = texts.hardwarePrompt;
    selectionError = texts.selectionError;

    const ProductIdentity identity = machine.stampedIdentity();
    if (!identity.code.empty()) {
        productCode = identity.code;
    }
    productName = identity.name;
    loadProductValues(catalogue, machine);
    title = installTitle(productName, catalogue.buildVersion());
    prompt = "Please select the type of product to install.";
}

bool CInstallApp::PrepareHardwareFamily(const InstallPlan& plan) {
    InstallDrivers();
    if (SelectProductType(plan)) {
        return true;
    }
    if (!selectionError.empty()) {  // Kept, never shown: the choice has cleared it.
        machine.showMessage({selectionError});
    }
    return false;
}

bool CInstallApp::PrepareOrdinaryProduct(const InstallPlan& plan) {
    OfferUninstall(plan.olderVersions);
    if (plan.deviceFamily != nullptr) {
        InstallDrivers();
    }
    return SelectProductType(plan);
}

void CInstallApp::OfferUninstall(OlderVersions which) {
    const std::unique_ptr<KeyReader> localMachine = machine.localMachine();
    std::vector<InstalledProduct> products;
    const bool found = which == OlderVersions::OfMaker
                           ? findInstalledMakerProducts(*localMachine, products)
                           : findInstalledProductsFor(*localMachine, productNumber, products);
    if (!found) {
        return;
    }
    machine.offerRemoval(products, [&](const std::string& tickedName) {
        // Kept: every version of the name, and again when another of the name is ticked too.
        for (const InstalledProduct& product : products) {
            if (product.displayName == tickedName) {
                launchAndWait(machine, product.uninstallString, "");
            }
        }
    });
}

void CInstallApp::InstallDrivers() {
    std::string error;
    if (!installDrivers(machine, sourceDirectory, deviceFamily->packages, deviceFamily->dataKey,
                        error)) {
        machine.showMessage(driversFailedMessage(productName, error));
    }
}

bool CInstallApp::SelectProductType(const InstallPlan& plan) {
    selectionState = 1;
    prompt = hardwarePrompt;
    // Kept: a cancelled choice ends without a word, so a reason set earlier goes.
    selectionError.clear();
    std::optional<unsigned> chosen = product_type::live;
    if (plan.offeredTypes != 0) {
        chosen = machine.askProductType({productName, title, prompt, plan.offeredTypes});
    }
    machine.dispatchPendingMessage();
    productType = chosen.value_or(0);
    return std::ranges::find(productChoices, productType, &ProductChoice::type) !=
           std::end(productChoices);
}

bool CInstallApp::SwitchToDemonstration() {
    if ((productType & product_type::demonstration) == 0) {
        return true;
    }
    std::string demonstrationCode;
    if (!catalogue.demonstrationCode(productCode, demonstrationCode)) {
        machine.showMessage(invalidInstallerMessage(productCode));
        return false;
    }
    productCode = demonstrationCode;
    std::ignore = catalogue.productName(productCode, productName);  // the catalogue has them all
    productNumber = numberFromCode(productCode);
    return true;
}

void CInstallApp::LaunchSetup() {
    std::string setupPath;
    if (!LocateSetupUtility(setupPath)) {
        return;
    }
    loadProductValues(catalogue, machine);
    const SetupRequest request{.productCode = productCode,
                               .productNumber = productNumber,
                               .productType = productType,
                               .typeSuffix = typeSuffix,
                               .sourceDirectory = sourceDirectory,
                               .on64BitWindows = machine.isWow64()};
    const std::string programFolder = uniqueProgramFolder(programFolderName(catalogue, request),
                                                          productNumber, installationIndex);
    launch(machine, setupPath, setupParameters(catalogue, request, programFolder));
}

bool CInstallApp::LocateSetupUtility(std::string& path) {
    path = composeCut({sourceDirectory, setupUtilityFile});
    if (machine.pathKind(path) != PathKind::Inaccessible) {
        return true;
    }
    machine.showMessage(setupMissingMessage(path));
    return false;
}
