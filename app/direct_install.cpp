// The whole rest of the run for the free protocol viewer: every older viewer goes, then its setup
// utility is started. Nobody is asked.
#include "app/direct_install.h"

#include <algorithm>
#include <utility>

#include "app/install_app.h"
#include "app/messages.h"
#include "app/setup_parameters.h"
#include "catalogue/product_data_loading.h"
#include "catalogue/product_names.h"
#include "platform/ansi_text.h"
#include "platform/format_text.h"

namespace {

bool copyUninstaller(Machine& machine, const ViewerRemoval& removal) {
    const std::uint32_t error = machine.copyFile(removal.copyFrom, removal.copyTo);
    if (error != 0) {
        machine.appendToLog(
            copyFailedLogLine(machine.currentTime(), removal.copyFrom, removal.copyTo, error));
    }
    return error == 0;
}

/// An own setup program leaves its work to a process that nobody can wait for. A file is there
/// while that is at work.
void awaitMarkerGone(Machine& machine, const InstalledProduct& product) {
    constexpr int longestWait = 180;  // seconds
    const std::string marker = composeCut({product.installLocation, "\\liveimport.ini"});
    for (int waited = 0; waited < longestWait && machine.pathKind(marker) != PathKind::Inaccessible;
         ++waited) {
        machine.pause(1000);
    }
}

void uninstall(Machine& machine, const InstalledProduct& product,
               const std::string& sourceDirectory) {
    const ViewerRemoval removal = planViewerRemoval(product.uninstallString, sourceDirectory);
    if (removal.runsSetup && copyUninstaller(machine, removal)) {
        launchAndWait(machine, removal.copyTo, "");
        return;
    }
    launchAndWait(machine, removal.program, removal.arguments);
    if (removal.runsSetup) {
        awaitMarkerGone(machine, product);
    }
}

}  // namespace

ViewerRemoval planViewerRemoval(const std::string& uninstallCommand,
                                const std::string& sourceDirectory) {
    constexpr std::string_view setupProgram = "setup.exe";
    const std::size_t setup = findIgnoringCase(uninstallCommand, setupProgram);
    if (setup == std::string::npos) {
        return {uninstallCommand, "", false, "", ""};
    }
    const std::size_t programEnd = setup + setupProgram.size() + 1;
    const std::size_t argumentsStart = std::min(programEnd + 1, uninstallCommand.size());
    const std::string program = uninstallCommand.substr(0, programEnd);
    const std::string target = replaceAll(program, setupProgram, replacementUninstallerFile, true);
    return {.program = program,
            .arguments = uninstallCommand.substr(argumentsStart),
            .runsSetup = true,
            .copyFrom = composeCut({sourceDirectory, replacementUninstallerFile}),
            .copyTo = replaceAll(target, "\"", "", false)};
}

std::vector<InstalledProduct> installedViewers(const KeyReader& localMachine) {
    std::vector<InstalledProduct> viewers;
    for (const char* name : {testSuiteViewerName, protocolViewerName}) {
        std::vector<InstalledProduct> found;
        std::ignore = findInstalledProducts(localMachine, name, found);
        for (InstalledProduct& product : found) {
            if (product.displayName == name) {
                viewers.push_back(std::move(product));
            }
        }
    }
    return viewers;
}

void CInstallApp::InstallDirectly() {
    for (const InstalledProduct& product : installedViewers(*machine.localMachine())) {
        const std::string path = composeCut({product.installLocation, "\\", analyser::path});
        if (const std::uint32_t code = machine.stopRunning(analyser::program, path); code != 0) {
            machine.showMessage(couldNotStopMessage(product, code));
            return;
        }
        uninstall(machine, product, sourceDirectory);
    }
    std::string setupPath;
    if (!LocateSetupUtility(setupPath)) {
        return;
    }
    loadProductValues(catalogue, machine);
    launch(machine, setupPath, directSetupParameters(catalogue, productCode, sourceDirectory));
}
