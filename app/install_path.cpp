#include "app/install_path.h"

#include "platform/ansi_text.h"

bool isDirectInstallEdition(std::string_view productCode) {
    return equalIgnoringCase(productCode, "1q");
}

InstallPath installPath(const DeviceFamily* family) {
    if (family == nullptr || family->installKind == install_kind::liveOnly) {
        return InstallPath::Ordinary;
    }
    return family->installKind == install_kind::beforeProductType ? InstallPath::HardwareFamily
                                                                  : InstallPath::EndSilently;
}

bool isLiveOnly(const DeviceFamily* family) {
    return family != nullptr && family->installKind == install_kind::liveOnly &&
           !family->packages.empty();
}

bool replacesMakerProducts(int productNumber) {
    return productNumber == 60;
}
