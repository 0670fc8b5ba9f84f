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

class Process {
  public:
    explicit Process(std::string command) {
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                            &startup, &process)) {
            fail("cannot start " + command);
        }
    }
    ~Process() {
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    [[nodiscard]] HWND awaitDialog() const {
        const DWORD start = GetTickCount();
        // Idle for the first time: the dialog is up and has nothing left to do.
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
    void awaitEnd() const {
        if (WaitForSingleObject(process.hProcess, deadline) != WAIT_OBJECT_0) {
            fail("no end");
        }
    }

  private:
    PROCESS_INFORMATION process{};
};

double timeToDialog(const std::string& command) {
    const auto before = std::chrono::steady_clock::now();
    const Process process(command);
    const HWND dialog = process.awaitDialog();
    const double time = millisecondsSince(before);
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    process.awaitEnd();
    return time;
}

double timeToLaunch(const std::string& command) {
    static const HANDLE launched = CreateEventA(nullptr, FALSE, FALSE, launchEvent);
    const auto before = std::chrono::steady_clock::now();
    const Process process(command);
    if (WaitForSingleObject(launched, deadline) != WAIT_OBJECT_0) {
        fail("no launch");
    }
    const double time = millisecondsSince(before);
    process.awaitEnd();
    return time;
}

}  // namespace

int main(int count, char** arguments) {
    if (count < 4) {
        fail("too few arguments");
    }
    const auto measure = std::string_view(arguments[1]) == "dialog" ? timeToDialog : timeToLaunch;
    const int rounds = std::atoi(arguments[2]);
    const std::vector<std::string> commands(arguments + 3, arguments + count);
    std::vector<double> times(commands.size());
    // The first round fills the caches of the file system.
    for (int round = 0; round <= rounds; ++round) {
        for (std::size_t turn = 0; turn < commands.size(); ++turn) {
            // Each follows each: the end of the one before reaches into the next.
            const std::size_t command = (static_cast<std::size_t>(round) + turn) % commands.size();
            times[command] = measure(commands[command]);
        }
        for (std::size_t command = 0; round > 0 && command < commands.size(); ++command) {
            std::printf("%.2f%c", times[command], command + 1 < commands.size() ? ' ' : '\n');
        }
    }
    return 0;
}
