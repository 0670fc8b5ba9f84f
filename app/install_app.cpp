// One run of the installer, from the first check to the hand-over; read it top to bottom.
//
// Started elevated from the installation media with "-dir", the program makes sure that it may
// install on this Windows, finds out which product it was stamped for and which build the media
// hold, and plans its road. The free viewer is installed without a question
// (direct_install_win.cpp). Families of capture hardware get their drivers first, every other
// product is first offered the removal of its older versions; then the user chooses the live
// product, the file viewer or the demonstration. At the end the product's own "Setup.Exe" is
// started with one parameter string that holds all that was decided, and the program ends without
// waiting for it. The one application object is constructed at the bottom of this file; whatever
// goes wrong is told where it is found, and a step that says false ends the run.
#include "app/install_app.h"

#include <windows.h>

#include <commctrl.h>

#include <cstdlib>
#include <optional>
#include <tuple>

#include "app/administrator_win.h"
#include "app/command_line.h"
#include "app/environment.h"
#include "app/message_win.h"
#include "app/setup_parameters.h"
#include "app/stamped_identity.h"
#include "catalogue/program_texts.h"
#include "drivers/driver_installation_win.h"
#include "installed/installed_product_win.h"
#include "platform/ansi_text_win.h"
#include "platform/files_win.h"
#include "platform/format_text.h"
#include "platform/operating_system_win.h"
#include "platform/shell_runner_win.h"
#include "platform/system_library_win.h"
#include "ui/ask_uninstall_dialog_win.h"
#include "ui/install_dialog_win.h"

CInstallApp::CInstallApp() : CWinApp(applicationName) {
    restrictLibrarySearch();
    useCodePage(systemCodePage());
}

bool CInstallApp::InitInstance() {
    InitCommonControls();
    CWinApp::InitInstance();
    if (!ParseCommandLine(sourceDirectory, installDirectory) || !CheckEnvironment()) {
        return false;
    }
    IdentifyProduct();

    buildDriverPackageTable(driverPackages);
    const InstallPlan plan = planInstallation(productCode, catalogue, driverPackages);
    if (plan.road == Road::Direct) {
        productType = product_type::live;
        InstallDirectly();
        return true;
    }
    if (plan.road == Road::EndSilently) {
        return false;
    }
    deviceFamily = plan.deviceFamily;
    productNumber = plan.productNumber;
    const bool chosen =
        plan.road == Road::HardwareFamily ? TakeHardwareRoad(plan) : TakeOrdinaryRoad(plan);
    if (!chosen || !SwitchToDemonstration()) {
        return false;
    }
    LaunchSetup();
    return true;
}

bool CInstallApp::ParseCommandLine(std::string& sourceDirectory, std::string& installDirectory) {
    CommandLine commandLine;
    const std::optional<Message> error =
        parseCommandLine({__argv, __argv + __argc}, examinePath, commandLine);
    sourceDirectory = commandLine.sourceDirectory;
    installDirectory = commandLine.installDirectory;
    if (error) {
        showMessage(*error);
    }
    return !error;
}

bool CInstallApp::CheckEnvironment() {
    bool administrator = false;
    std::ignore = IsAdministrator(administrator);  // a test that failed counts as not being one
    char name[256] = "";
    operatingSystemCode = operatingSystemName(name, sizeof name);
    const EnvironmentPolicy policy = environmentPolicy(administrator, operatingSystemCode, name);
    const bool agreed = !policy.message || showMessage(*policy.message);
    return policy.accepted && agreed;
}

void CInstallApp::IdentifyProduct() {
    const ProgramTexts texts = readProgramTexts();
    hardwarePrompt = texts.hardwarePrompt;
    selectionError = texts.selectionError;

    const ProductIdentity identity = readStampedIdentity();
    if (!identity.code.empty()) {
        productCode = identity.code;
    }
    productName = identity.name;
    loadProductValues(catalogue);
    title = installTitle(productName, catalogue.buildVersion());
    prompt = "Please select the type of product to install.";
}

bool CInstallApp::TakeHardwareRoad(const InstallPlan& plan) {
    if (plan.driverStep == DriverStep::BeforeChoice) {
        InstallDrivers();
    }
    if (SelectProductType(plan)) {
        return true;
    }
    if (!selectionError.empty()) {
        AfxMessageBox(selectionError);
    }
    return false;
}

bool CInstallApp::TakeOrdinaryRoad(const InstallPlan& plan) {
    OfferUninstall(plan.olderVersions);
    if (plan.driverStep == DriverStep::InPlaceOfChoice) {
        InstallDrivers();
    }
    return SelectProductType(plan);
}

void CInstallApp::OfferUninstall(OlderVersions which) {
    std::vector<InstalledProduct> products;
    const bool found = which == OlderVersions::OfMaker
                           ? findInstalledMakerProducts(products)
                           : findInstalledProductsFor(productNumber, products);
    if (found) {
        std::ignore = CAskUninstallDlg(products).DoModal();
    }
}

void CInstallApp::InstallDrivers() {
    std::string error;
    if (!installDrivers(sourceDirectory, deviceFamily->packages, deviceFamily->dataKey, error)) {
        showMessage(driversFailedMessage(productName, error));
    }
}

bool CInstallApp::SelectProductType(const InstallPlan& plan) {
    selectionState = 1;
    prompt = hardwarePrompt;
    // Kept: a cancelled choice ends without a word, so a reason set earlier goes.
    selectionError.clear();
    INT_PTR result = IDOK;
    if (plan.asksProductType) {
        CInstallDlg dialog(productName);
        dialog.SetCaption(title);
        dialog.SetPrompt(prompt);
        dialog.SetOfferDemonstration(plan.offersDemonstration);
        dialog.SetOfferFileViewer(plan.offersFileViewer);
        m_pMainWnd = &dialog;
        result = dialog.DoModal();
        m_pMainWnd = nullptr;
        productType = dialog.productType;
    } else {
        productType = product_type::live;
    }
    // What the closing dialog left behind; one message only, the rest goes with the program.
    MSG message;
    if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return result != IDCANCEL &&
           (productType == product_type::live || productType == product_type::viewer ||
            productType == product_type::demonstration);
}

bool CInstallApp::SwitchToDemonstration() {
    if ((productType & product_type::demonstration) == 0 ||
        switchToDemonstration(catalogue, productCode, productName, productNumber)) {
        return true;
    }
    showMessage(invalidInstallerMessage(productCode));
    return false;
}

void CInstallApp::LaunchSetup() {
    std::string setupPath;
    if (!LocateSetupUtility(setupPath)) {
        return;
    }
    loadProductValues(catalogue);
    const SetupRequest request{productCode, productNumber,   productType,
                               typeSuffix,  sourceDirectory, isWow64()};
    const auto isTaken = [this](const std::string& name) {
        std::vector<std::size_t> matches;
        return installationIndex.find(name, installation_selector::programFolder, matches);
    };
    const std::string programFolder =
        uniqueProgramFolder(programFolderName(catalogue, request), productNumber, isTaken);
    const std::string parameters = setupParameters(catalogue, request, programFolder);
    ShellRunner().start(setupPath.c_str(), parameters.c_str(), "open");
}

bool CInstallApp::LocateSetupUtility(std::string& path) {
    path = formatCut("%s%s", sourceDirectory.c_str(), setupUtilityFile);
    if (pathExists(path)) {
        return true;
    }
    MessageBoxA(nullptr, setupMissingMessage(path).text.c_str(), m_pszAppName,
                MB_OK | MB_ICONERROR);
    return false;
}

CInstallApp theApp;
