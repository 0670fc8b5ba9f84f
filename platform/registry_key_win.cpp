#include "platform/registry_key_win.h"

#include <tuple>
#include <utility>

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

std::uint32_t RegistryKey::openSubkey(const char* path, std::unique_ptr<KeyReader>& subkey) const {
    auto opened = std::make_unique<RegistryKey>();
    const LSTATUS result = opened->open(handle.get(), path, KEY_READ);
    if (result == ERROR_SUCCESS) {
        subkey = std::move(opened);
    }
    return static_cast<std::uint32_t>(result);
}

std::uint32_t RegistryKey::count(std::uint32_t& subkeys, std::uint32_t& values) const {
    DWORD subkeyCount = 0, valueCount = 0;
    const LSTATUS result =
        RegQueryInfoKeyA(handle.get(), nullptr, nullptr, nullptr, &subkeyCount, nullptr, nullptr,
                         &valueCount, nullptr, nullptr, nullptr, nullptr);
    subkeys = subkeyCount;
    values = valueCount;
    return static_cast<std::uint32_t>(result);
}

std::uint32_t RegistryKey::enumerateSubkey(std::uint32_t index, char* name,
                                           std::uint32_t& size) const {
    DWORD length = size;
    const LSTATUS result =
        RegEnumKeyExA(handle.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr);
    size = length;
    return static_cast<std::uint32_t>(result);
}

std::uint32_t RegistryKey::enumerateValue(std::uint32_t index, char* name, std::uint32_t& nameSize,
                                          char* data, std::uint32_t& dataSize) const {
    DWORD nameLength = nameSize, dataLength = dataSize;
    const LSTATUS result = RegEnumValueA(handle.get(), index, name, &nameLength, nullptr, nullptr,
                                         reinterpret_cast<BYTE*>(data), &dataLength);
    nameSize = nameLength;
    dataSize = dataLength;
    return static_cast<std::uint32_t>(result);
}

std::uint32_t RegistryKey::queryValue(const char* name, std::uint32_t& type, char* data,
                                      std::uint32_t& size) const {
    DWORD valueType = REG_NONE, length = size;
    const LSTATUS result = RegQueryValueExA(handle.get(), name, nullptr, &valueType,
                                            reinterpret_cast<BYTE*>(data), &length);
    type = valueType;
    size = length;
    return static_cast<std::uint32_t>(result);
}

std::uint32_t RegistryKey::lastError() const {
    return GetLastError();
}

std::unique_ptr<KeyReader> openLocalMachine() {
    auto root = std::make_unique<RegistryKey>();
    // An empty path gives a predefined key's own handle, which closing leaves open.
    std::ignore = root->open(HKEY_LOCAL_MACHINE, "", KEY_READ);
    return root;
}
