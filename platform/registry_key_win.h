#pragma once

#include "platform/handle_win.h"
#include "platform/registry_key.h"

/// A registry transaction that keys are opened in. For the product line.
struct RegistryTransaction {
    HANDLE handle = nullptr;  ///< of the transaction manager; not owned
    /// While `handle` is null: zero makes opens fail, any other value makes them ordinary ones.
    DWORD opensWithoutHandle = 0;
};

class RegistryKey : public KeyReader {
  public:
    /// `transaction` may be null, and outlives the key.
    explicit RegistryKey(const RegistryTransaction* transaction = nullptr)
        : transaction(transaction) {}

    /// Opens the subkey in place of the key held so far. Returns the Windows error code; on a
    /// failure to open, the key held so far stays. ERROR_INVALID_FUNCTION (1): the platform has no
    /// transactions, or the transaction has no handle and asks for one.
    [[nodiscard]] LSTATUS open(HKEY parent, const char* subkeyPath, REGSAM access);

    [[nodiscard]] std::uint32_t openSubkey(const char* path,
                                           std::unique_ptr<KeyReader>& subkey) const override;
    [[nodiscard]] std::uint32_t count(unsigned long& subkeys, unsigned long& values) const override;
    [[nodiscard]] std::uint32_t enumerateSubkey(unsigned long index, char* name,
                                                unsigned long& size) const override;
    [[nodiscard]] std::uint32_t enumerateValue(unsigned long index, char* name,
                                               unsigned long& nameSize, char* data,
                                               unsigned long& dataSize) const override;
    [[nodiscard]] std::uint32_t queryValue(const char* name, unsigned long& type, char* data,
                                           unsigned long& size) const override;
    [[nodiscard]] std::uint32_t lastError() const override { return GetLastError(); }

    RegistryHandle handle;  ///< empty when closed
    REGSAM view = 0;        ///< KEY_WOW64_64KEY, KEY_WOW64_32KEY as asked for at the last open
    const RegistryTransaction* transaction;
};

/// HKEY_LOCAL_MACHINE itself.
[[nodiscard]] std::unique_ptr<KeyReader> openLocalMachine();
