#include "app/install_app.h"
#include "app/program_folder.h"
#include "app/setup_request.h"
#include "app/setup_utility.h"
#include "platform/operating_system_query.h"
#include "platform/shell_runner.h"

void CInstallApp::LaunchSetup() {
    std::string setupPath;
    if (!locateSetupUtility(sourceDirectory, m_pszAppName, setupPath)) {
        return;
    }
    ReadProductData();
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
