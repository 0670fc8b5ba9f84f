#pragma once

#include <windows.h>

#include "platform/handle_win.h"

/// A registry transaction that keys are opened in.
struct RegistryTransaction {
    HANDLE handle = nullptr;  ///< of the transaction manager; not owned
    /// While `handle` is null: zero makes opens fail, any other value makes them ordinary ones.
    DWORD opensWithoutHandle = 0;
};

/// An open registry key, closed with the object.
class RegistryKey {
  public:
    /// `transaction` may be null, and outlives the key.
    explicit RegistryKey(const RegistryTransaction* transaction = nullptr);

    /// Opens the subkey in place of the key held so far. Returns the Windows error code; on a
    /// failure to open, the key held so far stays. ERROR_INVALID_FUNCTION (1): the platform has no
    /// transactions, or the transaction has no handle and asks for one.
    [[nodiscard]] LSTATUS open(HKEY parent, const char* subkeyPath, REGSAM access);

    RegistryHandle handle;  ///< empty when closed
    REGSAM view = 0;        ///< KEY_WOW64_64KEY, KEY_WOW64_32KEY as asked for at the last open
    const RegistryTransaction* transaction;
};

/// Reads a terminated value of a string type. `size` is the capacity of `buffer` in bytes, and
/// becomes the size of the data with its terminator; 0 on failure and for data without any byte,
/// which is the empty string. A null `buffer` asks for the size alone, and nothing is known of the
/// terminator then. Returns the Windows error code; ERROR_INVALID_DATA (13) for any other type
/// and for data without a terminator.
[[nodiscard]] LSTATUS readStringValue(HKEY key, const char* name, char* buffer, DWORD& size);
