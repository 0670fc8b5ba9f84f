#include "app/windows_machine_win.h"

#include <windows.h>

#include <shlobj.h>

#include <cstdlib>
#include <tuple>

#include "app/administrator_win.h"
#include "app/install_log_win.h"
#include "framework/application.h"
#include "installed/running_instances_win.h"
#include "platform/ansi_text_win.h"
#include "platform/files_win.h"
#include "platform/operating_system_win.h"
#include "platform/registry_key_win.h"
#include "platform/shell_runner_win.h"
#include "platform/system_library_win.h"
#include "ui/ask_uninstall_dialog_win.h"
#include "ui/install_dialog_win.h"

/// Nothing of Windows is decided here: each operation hands on to the file that touches it. Not in
/// an unnamed namespace, where the table of its operations costs the executable 512 bytes more.
class WindowsMachine : public Machine {
  public:
    WindowsMachine() {
        restrictLibrarySearch();
        useCodePage(systemCodePage());
        InitCommonControls();
    }

    OperatingSystemFacts operatingSystem() override { return queryOperatingSystem(); }
    bool isWow64() override { return ::isWow64(); }
    std::string programFilesFolder() override {
        char folder[MAX_PATH] = "";
        // On 64-bit Windows this is the 32-bit folder: kept, the products look for their drivers
        // there.
        return SHGetSpecialFolderPathA(nullptr, folder, CSIDL_PROGRAM_FILES, FALSE) ? folder : "";
    }
    std::unique_ptr<KeyReader> localMachine() override { return openLocalMachine(); }

    std::string programPath() override { return runningProgramPath(); }
    PathKind pathKind(const std::string& path) override { return examinePath(path); }
    bool isListed(const std::string& path) override { return ::isListed(path); }
    std::optional<std::string> fileContent(const std::string& path) override {
        return readFileContent(path);
    }
    bool fileVersion(const std::string& path, std::string& text) override {
        return fileVersionText(path, text);
    }
    std::uint32_t copyFile(const std::string& source, const std::string& target) override {
        return copyOverFile(source, target);
    }

    StartResult start(const std::string& file, const std::string& parameters) override {
        ShellRunner runner;
        runner.start(file.c_str(), parameters.c_str(), "open");
        return runner.result;
    }
    StartResult startAndWait(const std::string& file, const std::string& parameters) override {
        ShellRunner runner;
        runner.runAndWait(file.c_str(), parameters.c_str(), "open");
        return runner.result;
    }
    std::uint32_t stopRunning(const std::string& fileName, const std::string& path) override {
        return terminateProcessesByPath(fileName, path);
    }
    void pause(std::uint32_t milliseconds) override { Sleep(milliseconds); }

    bool showMessage(const Message& message) override {
        const UINT type = (message.icon == MessageIcon::Error ? MB_ICONERROR : MB_ICONEXCLAMATION) |
                          (message.buttons == MessageButtons::YesNo ? MB_YESNO : MB_OK);
        const int answer = message.owner == MessageOwner::None
                               ? MessageBoxA(nullptr, message.text.c_str(), message.title, type)
                               : AfxMessageBox(message.text, type);
        return answer == IDYES;
    }

    std::vector<std::string> arguments() override { return {__argv, __argv + __argc}; }
    ProductIdentity stampedIdentity() override { return readStampedIdentity(); }
    bool isAdministrator() override {
        bool administrator = false;
        std::ignore = IsAdministrator(administrator);  // a test that failed counts as not being one
        return administrator;
    }
    SystemTime currentTime() override {
        SYSTEMTIME now;
        GetSystemTime(&now);
        return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
    }

    void offerRemoval(const std::vector<InstalledProduct>& products,
                      const std::function<void(const std::string& tickedName)>& remove) override {
        std::ignore = CAskUninstallDlg(products, remove).DoModal();
    }
    std::optional<unsigned> askProductType(const ProductTypeQuestion& question) override {
        CInstallDlg dialog(question.productName);
        dialog.SetCaption(question.title);
        dialog.SetPrompt(question.prompt);
        dialog.SetOfferedTypes(question.offeredTypes);
        AfxGetApp()->m_pMainWnd = &dialog;
        const INT_PTR result = dialog.DoModal();
        AfxGetApp()->m_pMainWnd = nullptr;
        return result == IDCANCEL ? std::nullopt : std::optional(dialog.productType);
    }
    void dispatchPendingMessage() override {
        MSG message;
        if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    void appendToLog(const std::string& line) override { appendToInstallLog(line); }
};

Machine& windowsMachine() {
    static WindowsMachine machine;
    return machine;
}
