// Starting other programs, and what the user is told when that fails.
#pragma once

#include <cstdint>
#include <string>

class Computer;

/// What the shell answered to a start.
struct StartResult {
    bool started = false;
    // Where it failed:
    std::uintptr_t instance = 0;  ///< the record's hInstApp, a SE_ERR_ code of shellapi.h
    std::uint32_t lastError = 0;  ///< GetLastError
};

/// What to tell the user about a failed start: chosen by the shell's instance and, where that says
/// nothing, by the last error. Null: nothing is shown. The text is static.
[[nodiscard]] const char* shellFailureMessage(const StartResult& failure);

/// Whether `file` is the full path, in quotes or without, of what is not there, not as the program
/// either that the shell takes a path without ".exe" for.
[[nodiscard]] bool isMissingProgram(Computer& computer, const std::string& file);

/// Starts `file` with `parameters` (empty: none) and leaves it to itself. False when it was not
/// started, after a message box titled "Error" in most cases; silently for an empty `file`, and for
/// a missing program: the shell has a message box of its own for that.
bool launch(Computer& computer, const std::string& file, const std::string& parameters);

/// The same, and returns when the program has ended.
bool launchAndWait(Computer& computer, const std::string& file, const std::string& parameters);
