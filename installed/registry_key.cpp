#include "installed/registry_key.h"

#include "platform/procedure_address.h"

namespace {

constexpr REGSAM viewBits = KEY_WOW64_64KEY | KEY_WOW64_32KEY;

using OpenKeyTransacted = LSTATUS(WINAPI*)(HKEY, LPCSTR, DWORD, REGSAM, PHKEY, HANDLE, PVOID);

LSTATUS openKey(const RegistryTransaction* transaction, HKEY parent, const char* subkeyPath,
                REGSAM access, HKEY& key) {
    if (transaction == nullptr ||
        (transaction->handle == nullptr && transaction->opensWithoutHandle != 0)) {
        return RegOpenKeyExA(parent, subkeyPath, 0, access, &key);
    }
    // Missing before Windows Vista.
    const auto openTransacted =
        transaction->handle == nullptr
            ? nullptr
            : procedureAddress<OpenKeyTransacted>(GetModuleHandleA("Advapi32.dll"),
                                                  "RegOpenKeyTransactedA");
    return openTransacted == nullptr
               ? ERROR_INVALID_FUNCTION
               : openTransacted(parent, subkeyPath, 0, access, &key, transaction->handle, nullptr);
}

}  // namespace

RegistryKey::RegistryKey(const RegistryTransaction* transaction) : transaction(transaction) {}

RegistryKey::~RegistryKey() {
    if (handle != nullptr) {
        RegCloseKey(handle);
    }
}

LSTATUS RegistryKey::open(HKEY parent, const char* subkeyPath, REGSAM access) {
    HKEY opened = nullptr;
    LSTATUS result = openKey(transaction, parent, subkeyPath, access, opened);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    if (handle != nullptr) {
        result = RegCloseKey(handle);
    }
    handle = opened;
    view = access & viewBits;
    return result;
}
