#pragma once

#include <windows.h>

#include <shellapi.h>

#include "platform/shell_runner.h"

/// Starts programs through the shell. One object may serve several runs, one after another.
class ShellRunner {
  public:
    /// `owner` is the shell's owner window, may be null.
    explicit ShellRunner(HWND owner = nullptr);

    /// Starts `file`; the texts are used during the call only. Null or empty `parameters` are
    /// passed as none. Returns the process handle, which is never closed (kept: it lives as long
    /// as the installer, which ends soon after), or null on failure.
    HANDLE start(const char* file, const char* parameters, const char* verb);

    /// Starts `file` and blocks until it has ended, pumping no messages; what was typed or clicked
    /// meanwhile is lost. False when it could not be started. Lasts at least 200 ms after a start.
    bool runAndWait(const char* file, const char* parameters, const char* verb);

    /// Exit code of the last process waited for; 0 after start.
    DWORD exitCode = 0;
    /// Of the last start.
    StartResult result;

  private:
    SHELLEXECUTEINFOA execution{};
};
