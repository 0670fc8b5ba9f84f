#pragma once

#include <windows.h>

/// Reads a terminated value of a string type. `size` is the capacity of `buffer` in bytes, and
/// becomes the size of the data with its terminator; 0 on failure and for data without any byte,
/// which is the empty string. A null `buffer` asks for the size alone, and nothing is known of the
/// terminator then. Returns the Windows error code; ERROR_INVALID_DATA (13) for any other type
/// and for data without a terminator.
LSTATUS readStringValue(HKEY key, const char* name, char* buffer, DWORD& size);
