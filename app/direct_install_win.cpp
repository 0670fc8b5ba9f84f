// The whole rest of the run for the free protocol viewer: every older viewer goes, then its setup
// utility is started. Nobody is asked.
#include <windows.h>

#include "app/direct_install.h"
#include "app/install_app.h"
#include "app/install_log_win.h"
#include "app/message_win.h"
#include "app/setup_parameters.h"
#include "installed/analyser_path.h"
#include "installed/installed_product_win.h"
#include "installed/running_instances_win.h"
#include "platform/files_win.h"
#include "platform/shell_runner_win.h"

namespace {

SystemTime currentTime() {
    SYSTEMTIME now;
    GetSystemTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

bool copyUninstaller(const std::string& source, const std::string& target) {
    if (CopyFileA(source.c_str(), target.c_str(), FALSE)) {
        return true;
    }
    const DWORD error = GetLastError();
    appendToInstallLog(copyFailedLogLine(currentTime(), source, target, error));
    return false;
}

void uninstall(const InstalledProduct& product, const std::string& sourceDirectory) {
    const ViewerRemoval removal = planViewerRemoval(product.uninstallString, sourceDirectory);
    const bool copied = removal.runsSetup && copyUninstaller(removal.copyFrom, removal.copyTo);
    const std::string& program = copied ? removal.copyTo : removal.program;
    ShellRunner().runAndWait(program.c_str(), copied ? "" : removal.arguments.c_str(), "open");
    // The product's own setup program leaves its work to a process that nobody can wait for.
    if (removal.runsSetup && !copied) {
        const std::string marker = importMarkerPath(product);
        awaitMarkerGone([&] { return pathExists(marker); }, [] { Sleep(1000); });
    }
}

}  // namespace

void CInstallApp::InstallDirectly() {
    for (const InstalledProduct& product : installedViewers(findInstalledProducts)) {
        const DWORD code = terminateProcessesByPath(analyser::program, analyserPath(product));
        if (code != 0) {
            showMessage(couldNotStopMessage(product, code));
            return;
        }
        uninstall(product, sourceDirectory);
    }
    std::string setupPath;
    if (!LocateSetupUtility(setupPath)) {
        return;
    }
    loadProductValues(catalogue);
    const std::string parameters = directSetupParameters(catalogue, productCode, sourceDirectory);
    ShellRunner().start(setupPath.c_str(), parameters.c_str(), "open");
}
