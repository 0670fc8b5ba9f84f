#include "tests/end_to_end/installer_run.h"

#include <gtest/gtest.h>

#include <algorithm>

constexpr DWORD pollInterval = 10;

InstallerRun::InstallerRun(const std::string& program, const std::string& arguments)
    : job(CreateJobObjectA(nullptr, nullptr)) {
    std::string command = '"' + program + "\" " + arguments;
    const std::string folder = program.substr(0, program.rfind('\\') + 1);
    GetDesktopWindow();  // has Wine start what it needs for windows outside of the job
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    if (!CreateProcessA(program.c_str(), command.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED,
                        nullptr, folder.c_str(), &startup, &process)) {
        ADD_FAILURE() << "cannot start " << command << ": " << GetLastError();
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
        HWND window = nullptr;
        while ((window = FindWindowExA(nullptr, window, "#32770", nullptr)) != nullptr) {
            DWORD owner = 0;
            GetWindowThreadProcessId(window, &owner);
            // A dialog that another one covers is disabled.
            if (owner == process.dwProcessId && IsWindowVisible(window) &&
                IsWindowEnabled(window) &&
                std::find(seen.begin(), seen.end(), window) == seen.end()) {
                seen.push_back(window);
                return DialogWindow(window);
            }
        }
        if (WaitForSingleObject(process.hProcess, pollInterval) != WAIT_TIMEOUT) {
            return std::nullopt;
        }
    } while (GetTickCount() - start < deadline);
    ADD_FAILURE() << "neither a dialog nor the end";
    return std::nullopt;
}

void InstallerRun::awaitEnd() {
    const DWORD start = GetTickCount();
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION accounting{};
    do {
        QueryInformationJobObject(job, JobObjectBasicAccountingInformation, &accounting,
                                  sizeof accounting, nullptr);
        if (accounting.ActiveProcesses == 0) {
            return;
        }
        WaitForSingleObject(process.hProcess, pollInterval);
        Sleep(pollInterval);
    } while (GetTickCount() - start < defaultDeadline);
    ADD_FAILURE() << accounting.ActiveProcesses << " processes still run";
}
