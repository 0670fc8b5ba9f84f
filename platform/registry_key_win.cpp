#include "platform/registry_key_win.h"

#include "platform/registry_key.h"
#include "platform/system_library_win.h"

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

LSTATUS RegistryKey::open(HKEY parent, const char* subkeyPath, REGSAM access) {
    HKEY opened = nullptr;
    const LSTATUS result = openKey(transaction, parent, subkeyPath, access, opened);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    view = access & viewBits;
    return handle.reset(opened);
}

LSTATUS readStringValue(HKEY key, const char* name, char* buffer, DWORD& size) {
    const DWORD capacity = size;
    size = 0;
    DWORD type = REG_NONE;
    DWORD dataSize = capacity;
    const LSTATUS result =
        RegQueryValueExA(key, name, nullptr, &type, reinterpret_cast<BYTE*>(buffer), &dataSize);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    if (!isStringType(type)) {
        return ERROR_INVALID_DATA;
    }
    if (buffer != nullptr) {
        if (dataSize == 0 && capacity != 0) {
            buffer[0] = '\0';
        }
        if (!isTerminated(buffer, dataSize)) {
            return ERROR_INVALID_DATA;
        }
    }
    size = dataSize;
    return ERROR_SUCCESS;
}
