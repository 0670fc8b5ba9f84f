#include "app/install_app.h"
#include "app/program_folder.h"
#include "app/setup_parameters.h"
#include "app/setup_utility.h"
#include "platform/operating_system_query.h"
#include "platform/shell_runner.h"

void CInstallApp::LaunchSetup() {
    std::string setupPath;
    if (!locateSetupUtility(sourceDirectory, m_pszAppName, setupPath)) {
        return;
    }
    const std::string bitness =
        setupBitness(catalogue.hasProcessorSpecificSetups(productCode), isWow64());

    std::string folderName;
    catalogue.displayName(productCode, programFolderEdition(productType), folderName);
    const auto isTaken = [](const std::string&) { return false; };

    const std::string parameters = composeSetupParameters({
        {"-build", BuildVersion()},
        {"-pid", productCode},
        {"-pf", uniqueProgramFolder(folderName, productNumber, isTaken)},
        {"-type", productTypeWord(productType, productNumber, typeSuffix, bitness)},
        {"-bitness", bitness},
        {"-tmp", temporaryFolder(sourceDirectory)},
    });
    ShellRunner().start(setupPath.c_str(), parameters.c_str(), "open");
}
