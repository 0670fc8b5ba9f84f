// A run of the installer, with everything that it starts.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "tools/dialog_driver/dialog_window_win.h"

/// What came next: a dialog, else the end of the program, else what went wrong.
struct Encounter {
    std::optional<DialogWindow> dialog;
    std::string error;
};

class InstallerRun {
  public:
    /// Milliseconds: long enough for the first start of a program on a busy machine.
    static constexpr DWORD defaultDeadline = 60000;

    /// Starts `program` with these arguments, which have no quotes in them; the current folder is
    /// its own, where none is given. When it cannot be started, every call says so.
    InstallerRun(const std::string& program, const std::vector<std::string>& arguments,
                 const std::string& currentFolder = "");
    /// Ends what still runs.
    ~InstallerRun();
    InstallerRun(const InstallerRun&) = delete;
    InstallerRun& operator=(const InstallerRun&) = delete;

    /// Waits for a dialog that takes input and was not returned before, or for the program's end.
    [[nodiscard]] Encounter nextDialog(DWORD deadline = defaultDeadline);

    /// Waits, with the default deadline, until the installer and all that it started have ended.
    /// Returns what went wrong; empty when nothing did.
    [[nodiscard]] std::string awaitEnd();

    PROCESS_INFORMATION process{};
    bool hangs = false;  ///< a deadline has passed

  private:
    HANDLE job;
    std::string startError;
    std::vector<HWND> seen;
};
