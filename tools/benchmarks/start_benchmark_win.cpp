// Times programs from their start to their first dialog, or to their launch of another program.
//
//   start_benchmark dialog|launch ROUNDS COMMAND...
//
// Every round runs each command once, so that what else the machine does falls on all of them.
// Prints a line for each round: the milliseconds of each command.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "tools/benchmarks/benchmark_win.h"

namespace {

constexpr DWORD deadline = 20000;  // milliseconds

[[noreturn]] void fail(const std::string& reason) {
    std::fprintf(stderr, "start_benchmark: %s\n", reason.c_str());
    std::exit(1);
}

/// Waits until the dialog is up and has nothing left to do.
HWND awaitDialog(const PROCESS_INFORMATION& process) {
    const DWORD start = GetTickCount();
    // Idle for the first time.
    WaitForInputIdle(process.hProcess, deadline);
    do {
        for (HWND window = nullptr;
             (window = FindWindowExA(nullptr, window, "#32770", nullptr)) != nullptr;) {
            DWORD processId = 0;
            GetWindowThreadProcessId(window, &processId);
            if (processId == process.dwProcessId && IsWindowVisible(window)) {
                return window;
            }
        }
    } while (WaitForSingleObject(process.hProcess, 1) == WAIT_TIMEOUT &&
             GetTickCount() - start < deadline);
    fail("no dialog");
}

const HANDLE launched = CreateEventA(nullptr, FALSE, FALSE, launchEvent);

/// There is no dialog to be closed then.
HWND awaitLaunch(const PROCESS_INFORMATION&) {
    if (WaitForSingleObject(launched, deadline) != WAIT_OBJECT_0) {
        fail("no launch");
    }
    return nullptr;
}

double measure(HWND (*await)(const PROCESS_INFORMATION& process), std::string command) {
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    const auto before = std::chrono::steady_clock::now();
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process)) {
        fail("cannot start " + command);
    }
    const HWND dialog = await(process);
    const double time = millisecondsSince(before);
    if (dialog != nullptr) {
        PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    }
    if (WaitForSingleObject(process.hProcess, deadline) != WAIT_OBJECT_0) {
        fail("no end");
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return time;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 4) {
        fail("too few arguments");
    }
    const auto await = std::string_view(arguments[1]) == "dialog" ? awaitDialog : awaitLaunch;
    const int rounds = std::atoi(arguments[2]);
    const std::vector<std::string> commands(arguments + 3, arguments + count);
    std::vector<double> times(commands.size());
    // The first round fills the caches of the file system.
    for (int round = 0; round <= rounds; ++round) {
        for (std::size_t turn = 0; turn < commands.size(); ++turn) {
            // Each follows each: the end of the one before reaches into the next.
            const std::size_t command = (static_cast<std::size_t>(round) + turn) % commands.size();
            times[command] = measure(await, commands[command]);
        }
        for (std::size_t command = 0; round > 0 && command < commands.size(); ++command) {
            std::printf("%.2f%c", times[command], command + 1 < commands.size() ? ' ' : '\n');
        }
    }
    return 0;
}
