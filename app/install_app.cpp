#include "app/install_app.h"

#include <windows.h>

#include <commctrl.h>

#include "app/install_messages.h"
#include "app/install_path.h"
#include "app/setup_request.h"
#include "app/show_message.h"
#include "app/stamped_identity.h"
#include "catalogue/product_code.h"
#include "catalogue/program_texts.h"
#include "drivers/driver_installation.h"
#include "framework/message_box.h"
#include "installed/ask_uninstall_dialog.h"
#include "installed/installed_product_discovery.h"
#include "platform/ansi_text.h"
#include "platform/system_code_page.h"
#include "platform/system_library.h"
#include "ui/install_dialog.h"

namespace {

/// The title of message boxes.
constexpr const char* applicationName = "Tavlink Installation";

/// Lets what the closing dialog left behind be handled; one message only, the rest goes with the
/// program.
void dispatchPendingMessage() {
    MSG message;
    if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

}  // namespace

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

    if (isDirectInstallEdition(productCode)) {
        productType = product_type::live;
        InstallDirectly();
        return true;
    }

    buildDriverPackageTable(driverPackages);
    deviceFamily = findDeviceFamily(driverPackages, lowerCase(productCode));
    productNumber = numberFromCode(productCode);
    switch (installPath(deviceFamily)) {
        case InstallPath::EndSilently:
            return false;
        case InstallPath::HardwareFamily:
            if (!PrepareHardwareFamily()) {
                return false;
            }
            break;
        case InstallPath::Ordinary:
            if (!PrepareOrdinary()) {
                return false;
            }
    }
    if (!SwitchToDemonstration()) {
        return false;
    }
    LaunchSetup();
    return true;
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
    ReadProductData();
    title = installTitle(productName, catalogue.buildVersion());
    prompt = "Please select the type of product to install.";
}

void CInstallApp::ReadProductData() {
    productData.loadProductValues(catalogue);
}

bool CInstallApp::PrepareHardwareFamily() {
    InstallDrivers();
    selectionState = 1;
    prompt = hardwarePrompt;
    if (SelectProductType(true, false)) {
        return true;
    }
    if (!selectionError.empty()) {
        AfxMessageBox(selectionError);
    }
    return false;
}

bool CInstallApp::PrepareOrdinary() {
    OfferUninstall();
    const bool liveOnly = isLiveOnly(deviceFamily);
    if (liveOnly) {
        InstallDrivers();
    }
    selectionState = 1;
    prompt = hardwarePrompt;
    return SelectProductType(false, liveOnly);
}

void CInstallApp::OfferUninstall() {
    std::vector<InstalledProduct> products;
    if (replacesMakerProducts(productNumber)) {
        findInstalledMakerProducts(products);
    } else {
        findInstalledProductsFor(productNumber, products);
    }
    if (!products.empty()) {
        CAskUninstallDlg(products).DoModal();
    }
}

void CInstallApp::InstallDrivers() {
    std::string error;
    if (!installDrivers(sourceDirectory, deviceFamily->packages, deviceFamily->dataKey, error)) {
        showMessage(driversFailedMessage(productName, error));
    }
}

bool CInstallApp::SelectProductType(bool refreshPrompt, bool liveOnly) {
    if (refreshPrompt) {
        prompt = hardwarePrompt;
    }
    // Kept: a cancelled choice ends without a word, so a reason set earlier goes.
    selectionError.clear();
    INT_PTR result = IDOK;
    if (liveOnly) {
        productType = product_type::live;
    } else {
        CInstallDlg dialog(productName);
        dialog.SetCaption(title);
        dialog.SetPrompt(prompt);
        dialog.SetOfferDemonstration(catalogue.hasDemonstrationEdition(productCode));
        dialog.SetOfferFileViewer(catalogue.hasFileViewerEdition(productCode));
        m_pMainWnd = &dialog;
        result = dialog.DoModal();
        m_pMainWnd = nullptr;
        productType = dialog.productType;
    }
    dispatchPendingMessage();
    return result != IDCANCEL &&
           (productType == product_type::live || productType == product_type::viewer ||
            productType == product_type::demonstration);
}

bool CInstallApp::SwitchToDemonstration() {
    if ((productType & product_type::demonstration) == 0) {
        return true;
    }
    if (!switchToDemonstration(catalogue, productCode, productName, productNumber)) {
        showMessage(invalidInstallerMessage(productCode));
        return false;
    }
    return true;
}
