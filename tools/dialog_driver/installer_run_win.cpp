#include "tools/dialog_driver/installer_run_win.h"

constexpr DWORD pollInterval = 10;  // milliseconds

InstallerRun::InstallerRun(const std::string& program, const std::vector<std::string>& arguments,
                           const std::string& currentFolder)
    : job(CreateJobObjectA(nullptr, nullptr)) {
    std::string command = '"' + program + '"';
    for (const std::string& argument : arguments) {
        // A backslash would take the quote behind it for a character.
        command += " \"" + argument + (argument.ends_with('\\') ? "\\\"" : "\"");
    }
    const std::string folder =
        currentFolder.empty() ? program.substr(0, program.rfind('\\') + 1) : currentFolder;
    GetDesktopWindow();  // has Wine start what it needs for windows outside of the job
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    if (!CreateProcessA(program.c_str(), command.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED,
                        nullptr, folder.c_str(), &startup, &process)) {
        error = "cannot start " + command + ": error " + std::to_string(GetLastError());
        return;
    }
    AssignProcessToJobObject(job, process.hProcess);
    ResumeThread(process.hThread);
}

InstallerRun::~InstallerRun() {
    TerminateJobObject(job, 1);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    CloseHandle(job);
}

std::optional<DialogWindow> InstallerRun::nextDialog(DWORD deadline) {
    const DWORD start = GetTickCount();
    do {
        for (const DialogWindow& dialog : DialogWindow::all()) {
            const HWND window = dialog.window;
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            // A dialog that another one covers is disabled.
            if (owner == process.dwProcessId && IsWindowVisible(window) &&
                IsWindowEnabled(window) && seen.insert(window).second) {
                return dialog;
            }
        }
        if (!error.empty() || WaitForSingleObject(process.hProcess, pollInterval) != WAIT_TIMEOUT) {
            return std::nullopt;
        }
    } while (GetTickCount() - start < deadline);
    hangs = true;
    error = "neither a dialog nor the end";
    return std::nullopt;
}

void InstallerRun::awaitEnd() {
    if (!error.empty()) {
        return;
    }
    const DWORD start = GetTickCount();
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION accounting{};
    do {
        // The installer itself is none of the job's where the tests run in a job of somebody
        // else's.
        const DWORD installer = WaitForSingleObject(process.hProcess, pollInterval);
        QueryInformationJobObject(job, JobObjectBasicAccountingInformation, &accounting,
                                  sizeof accounting, nullptr);
        if (installer == WAIT_OBJECT_0 && accounting.ActiveProcesses == 0) {
            return;
        }
        Sleep(pollInterval);
    } while (GetTickCount() - start < defaultDeadline);
    hangs = true;
    error = std::to_string(accounting.ActiveProcesses) + " processes still run";
}
