#pragma once

#include <windows.h>

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
    ~RegistryKey();
    RegistryKey(const RegistryKey&) = delete;
    RegistryKey& operator=(const RegistryKey&) = delete;

    /// Opens the subkey in place of the key held so far. Returns the Windows error code; on a
    /// failure to open, the key held so far stays. ERROR_INVALID_FUNCTION (1): the platform has no
    /// transactions, or the transaction has no handle and asks for one.
    LSTATUS open(HKEY parent, const char* subkeyPath, REGSAM access);

    HKEY handle = nullptr;  ///< null when closed
    REGSAM view = 0;        ///< KEY_WOW64_64KEY, KEY_WOW64_32KEY as asked for at the last open
    const RegistryTransaction* transaction;
};
