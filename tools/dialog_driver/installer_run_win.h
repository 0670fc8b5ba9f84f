// A run of the installer, with everything that it starts.
#pragma once

#include <windows.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tools/dialog_driver/dialog_window_win.h"

class InstallerRun {
  public:
    /// Milliseconds: long enough for the first start of a program on a busy machine.
    static constexpr DWORD defaultDeadline = 60000;

    /// Starts `program` with these arguments, which have no quotes in them; the current folder is
    /// its own, where none is given.
    InstallerRun(const std::string& program, const std::vector<std::string>& arguments,
                 const std::string& currentFolder = "");
    /// Ends what still runs.
    ~InstallerRun();
    InstallerRun& operator=(InstallerRun&&) = delete;  // so it is neither moved nor copied

    /// Waits for a dialog that takes input and was not returned before. Nothing: the program has
    /// ended, or there is an error.
    [[nodiscard]] std::optional<DialogWindow> nextDialog(DWORD deadline = defaultDeadline);

    /// Waits, with the default deadline, until the installer and all that it started have ended, or
    /// there is an error.
    void awaitEnd();

    PROCESS_INFORMATION process{};
    std::string error;   ///< what went wrong, the start included; empty while nothing did
    bool hangs = false;  ///< a deadline has passed

  private:
    HANDLE job;
    std::set<HWND> seen;
};
