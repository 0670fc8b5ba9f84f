#include "drivers/driver_installation_win.h"

#include <windows.h>

#include <shlobj.h>

#include "drivers/driver_installation.h"
#include "platform/files_win.h"
#include "platform/operating_system_win.h"
#include "platform/shell_runner_win.h"

namespace {

/// Without a trailing backslash; empty when Windows does not know it.
std::string programFilesFolder() {
    char folder[MAX_PATH] = "";
    // On 64-bit Windows this is the 32-bit folder: kept, the products look for their drivers there.
    return SHGetSpecialFolderPathA(nullptr, folder, CSIDL_PROGRAM_FILES, FALSE) ? folder : "";
}

void runReportedInstaller(ShellRunner& runner, const std::string& reportPath,
                          const std::string& folder) {
    const std::optional<std::string> report = readFileContent(reportPath);
    if (!report) {
        return;
    }
    const std::optional<std::string> installer =
        reportedInstaller(*report, folder, driverInstallerName(isWow64()));
    if (installer && pathExists(*installer)) {
        runner.runAndWait(installer->c_str(), nullptr, "open");
    }
}

}  // namespace

bool installDrivers(const std::string& sourceDirectory, const std::vector<DriverPackage>& packages,
                    const char* dataKey, std::string& error) {
    error.clear();
    if (packages.empty()) {
        return true;
    }
    if (dataKey == nullptr) {
        error = "No data key specified.";
        return false;
    }
    const int systemCode = operatingSystemCode();
    const std::string programFiles = programFilesFolder();
    ShellRunner runner;
    for (const DriverPackage& package : packages) {
        if (!appliesTo(package, systemCode)) {
            continue;
        }
        const std::string folder = extractionFolder(package.targetFolder, programFiles);
        const ExtractionCommand command =
            extractionCommand(sourceDirectory, package.archive, dataKey, folder);
        runner.runAndWait(command.tool.c_str(), command.arguments.c_str(), "open");
        if (package.runInstaller) {
            runReportedInstaller(runner, command.report, folder);
        }
    }
    return true;
}
