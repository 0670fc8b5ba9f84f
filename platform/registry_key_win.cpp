#include "platform/registry_key_win.h"

#include <tuple>

#include "platform/system_library_win.h"

namespace {

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

LSTATUS RegistryKey::open(HKEY parent, const char* subkeyPath, REGSAM access) {
    HKEY opened = nullptr;
    const LSTATUS result = openKey(transaction, parent, subkeyPath, access, opened);
    if (result != ERROR_SUCCESS) {
        return result;
    }
    view = access & (KEY_WOW64_64KEY | KEY_WOW64_32KEY);
    return handle.reset(opened);
}

std::uint32_t RegistryKey::openSubkey(const char* path, std::unique_ptr<KeyReader>& subkey) const {
    auto opened = std::make_unique<RegistryKey>();
    const LSTATUS result = opened->open(handle.get(), path, KEY_READ);
    if (result == ERROR_SUCCESS) {
        subkey = std::move(opened);
    }
    return result;
}

std::uint32_t RegistryKey::count(unsigned long& subkeys, unsigned long& values) const {
    return RegQueryInfoKeyA(handle.get(), nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr,
                            &values, nullptr, nullptr, nullptr, nullptr);
}

std::uint32_t RegistryKey::enumerateSubkey(unsigned long index, char* name,
                                           unsigned long& size) const {
    return RegEnumKeyExA(handle.get(), index, name, &size, nullptr, nullptr, nullptr, nullptr);
}

std::uint32_t RegistryKey::enumerateValue(unsigned long index, char* name, unsigned long& nameSize,
                                          char* data, unsigned long& dataSize) const {
    return RegEnumValueA(handle.get(), index, name, &nameSize, nullptr, nullptr,
                         reinterpret_cast<BYTE*>(data), &dataSize);
}

std::uint32_t RegistryKey::queryValue(const char* name, unsigned long& type, char* data,
                                      unsigned long& size) const {
    return RegQueryValueExA(handle.get(), name, nullptr, &type, reinterpret_cast<BYTE*>(data),
                            &size);
}

std::unique_ptr<KeyReader> openLocalMachine() {
    auto root = std::make_unique<RegistryKey>();
    // An empty path gives a predefined key's own handle, which closing leaves open.
    std::ignore = root->open(HKEY_LOCAL_MACHINE, "", KEY_READ);
    return root;
}
