#pragma once

#include <cstdint>

/// What to tell the user after ShellExecuteExA failed: chosen by `instance`, the record's hInstApp
/// (a SE_ERR_ code of shellapi.h in the guise of a pointer), and, where that says nothing, by
/// GetLastError. Null: nothing is shown. The text is static.
[[nodiscard]] const char* shellFailureMessage(const void* instance, std::uint32_t lastError);
