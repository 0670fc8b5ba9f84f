#include "tests/end_to_end/installer_run.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

constexpr DWORD pollInterval = 10;

struct Search {
    DWORD processId;
    const std::vector<HWND>& seen;
    HWND found;
};

BOOL CALLBACK examineWindow(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    char className[16] = "";
    GetClassNameA(window, className, sizeof className);
    // A dialog that another one covers is disabled.
    const bool takesInput = IsWindowVisible(window) && IsWindowEnabled(window);
    const bool isNew =
        std::find(search.seen.begin(), search.seen.end(), window) == search.seen.end();
    if (processId == search.processId && takesInput && isNew &&
        std::string(className) == "#32770") {
        search.found = window;
    }
    return search.found == nullptr;
}

}  // namespace

InstallerRun::InstallerRun(const std::string& program, const std::string& arguments)
    : job(CreateJobObjectA(nullptr, nullptr)) {
    std::string command = '"' + program + "\" " + arguments;
    const std::string folder = program.substr(0, program.rfind('\\') + 1);
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
        Search search{process.dwProcessId, seen, nullptr};
        EnumWindows(examineWindow, reinterpret_cast<LPARAM>(&search));
        if (search.found != nullptr) {
            seen.push_back(search.found);
            return DialogWindow(search.found);
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
