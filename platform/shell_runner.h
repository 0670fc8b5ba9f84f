#pragma once

#include <cstdint>

/// What to tell the user after ShellExecuteExA failed: chosen by the shell's instance result
/// (SE_ERR_ codes of shellapi.h) and, where that says nothing, by GetLastError. Null: nothing is
/// shown. The text is static.
[[nodiscard]] const char* shellFailureMessage(std::uintptr_t instanceResult,
                                              std::uint32_t lastError);
