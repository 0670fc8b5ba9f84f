#include "app/windows_machine_win.h"

#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>

#include <cstdlib>
#include <tuple>

#include "app/administrator_win.h"
#include "app/install_log_win.h"
#include "framework/application.h"
#include "installed/running_instances_win.h"
#include "platform/ansi_text_win.h"
#include "platform/file_version_win.h"
#include "platform/files_win.h"
#include "platform/operating_system_win.h"
#include "platform/registry_key_win.h"
#include "platform/shell_runner_win.h"
#include "platform/system_library_win.h"
#include "ui/ask_uninstall_dialog_win.h"
#include "ui/install_dialog_win.h"

WindowsMachine::WindowsMachine() {
    restrictLibrarySearch();
    useCodePage(systemCodePage());
    InitCommonControls();
}

OperatingSystemFacts WindowsMachine::operatingSystem() {
    return queryOperatingSystem();
}

bool WindowsMachine::isWow64() {
    return ::isWow64();
}

std::string WindowsMachine::programFilesFolder() {
    char folder[MAX_PATH] = "";
    // On 64-bit Windows this is the 32-bit folder: kept, the products look for their drivers there.
    return SHGetSpecialFolderPathA(nullptr, folder, CSIDL_PROGRAM_FILES, FALSE) ? folder : "";
}

std::unique_ptr<KeyReader> WindowsMachine::localMachine() {
    return openLocalMachine();
}

std::string WindowsMachine::programPath() {
    return runningProgramPath();
}

PathKind WindowsMachine::pathKind(const std::string& path) {
    return examinePath(path);
}

bool WindowsMachine::isListed(const std::string& path) {
    return ::isListed(path);
}

std::optional<std::string> WindowsMachine::fileContent(const std::string& path) {
    return readFileContent(path);
}

bool WindowsMachine::fileVersion(const std::string& path, std::string& text) {
    return fileVersionText(path, text);
}

std::uint32_t WindowsMachine::copyFile(const std::string& source, const std::string& target) {
    return copyOverFile(source, target);
}

StartResult WindowsMachine::start(const std::string& file, const std::string& parameters) {
    ShellRunner runner;
    runner.start(file.c_str(), parameters.c_str(), "open");
    return runner.result;
}

StartResult WindowsMachine::startAndWait(const std::string& file, const std::string& parameters) {
    ShellRunner runner;
    runner.runAndWait(file.c_str(), parameters.c_str(), "open");
    return runner.result;
}

std::uint32_t WindowsMachine::stopRunning(const std::string& fileName, const std::string& path) {
    return terminateProcessesByPath(fileName, path);
}

void WindowsMachine::pause(std::uint32_t milliseconds) {
    Sleep(milliseconds);
}

bool WindowsMachine::showMessage(const Message& message) {
    const UINT type = (message.icon == MessageIcon::Error ? MB_ICONERROR : MB_ICONEXCLAMATION) |
                      (message.buttons == MessageButtons::YesNo ? MB_YESNO : MB_OK);
    const int answer = message.owner == MessageOwner::None
                           ? MessageBoxA(nullptr, message.text.c_str(), message.title, type)
                           : AfxMessageBox(message.text, type);
    return answer == IDYES;
}

std::vector<std::string> WindowsMachine::arguments() {
    return {__argv, __argv + __argc};
}

ProductIdentity WindowsMachine::stampedIdentity() {
    return readStampedIdentity();
}

bool WindowsMachine::isAdministrator() {
    bool administrator = false;
    std::ignore = IsAdministrator(administrator);  // a test that failed counts as not being one
    return administrator;
}

SystemTime WindowsMachine::currentTime() {
    SYSTEMTIME now;
    GetSystemTime(&now);
    return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

void WindowsMachine::offerRemoval(
    const std::vector<InstalledProduct>& products,
    const std::function<void(const std::vector<std::string>& tickedNames)>& remove) {
    std::ignore = CAskUninstallDlg(products, remove).DoModal();
}

std::optional<unsigned> WindowsMachine::askProductType(const ProductTypeQuestion& question) {
    CInstallDlg dialog(question.productName);
    dialog.SetCaption(question.title);
    dialog.SetPrompt(question.prompt);
    dialog.SetOfferedTypes(question.offeredTypes);
    AfxGetApp()->m_pMainWnd = &dialog;
    const INT_PTR result = dialog.DoModal();
    AfxGetApp()->m_pMainWnd = nullptr;
    return result == IDCANCEL ? std::nullopt : std::optional(dialog.productType);
}

void WindowsMachine::dispatchPendingMessage() {
    MSG message;
    if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

void WindowsMachine::appendToLog(const std::string& line) {
    appendToInstallLog(line);
}
