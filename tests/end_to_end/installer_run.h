// A run of the installer, with everything that it starts.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/end_to_end/dialog_window.h"

class InstallerRun {
  public:
    static constexpr DWORD defaultDeadline = 30000;  // milliseconds

    /// Starts `program` with these arguments as they are; its folder is the current one.
    InstallerRun(const std::string& program, const std::string& arguments);
    /// Ends what still runs.
    ~InstallerRun();
    InstallerRun(const InstallerRun&) = delete;
    InstallerRun& operator=(const InstallerRun&) = delete;

    /// The next dialog that takes input and was not returned before; nothing when the program has
    /// ended, and with a test failure when the deadline has passed.
    std::optional<DialogWindow> nextDialog(DWORD deadline = defaultDeadline);

    /// Waits, with the default deadline, until the installer and all that it started have ended.
    void awaitEnd();

    PROCESS_INFORMATION process{};

  private:
    HANDLE job;
    std::vector<HWND> seen;
};
