#include "tests/end_to_end/registry_fixture.h"

#include <windows.h>

#include <shlwapi.h>

RegistryFixture::~RegistryFixture() {
    for (const auto& [root, key] : created) {
        SHDeleteKeyA(root, key.c_str());
    }
}

void RegistryFixture::set(HKEY root, const std::string& key, const std::string& name,
                          const std::string& value, DWORD type) {
    // The topmost key that is new is the one to remove.
    for (size_t end = key.find('\\');; end = key.find('\\', end + 1)) {
        const std::string upper = key.substr(0, end);
        HKEY handle = nullptr;
        DWORD disposition = 0;
        RegCreateKeyExA(root, upper.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, &handle,
                        &disposition);
        if (disposition == REG_CREATED_NEW_KEY &&
            (created.empty() || !upper.starts_with(created.back().second + '\\'))) {
            created.emplace_back(root, upper);
        }
        if (end == std::string::npos) {
            RegSetValueExA(handle, name.c_str(), 0, type,
                           reinterpret_cast<const BYTE*>(value.c_str()),
                           static_cast<DWORD>(value.size()) + (type == REG_SZ ? 1 : 0));
        }
        RegCloseKey(handle);
        if (end == std::string::npos) {
            return;
        }
    }
}

void RegistryFixture::addInstalled(const std::string& key, const std::string& displayName,
                                   const std::string& version, const std::string& uninstall,
                                   const std::string& location) {
    const std::string path = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\" + key;
    set(HKEY_LOCAL_MACHINE, path, "DisplayName", displayName);
    set(HKEY_LOCAL_MACHINE, path, "DisplayVersion", version);
    set(HKEY_LOCAL_MACHINE, path, "UninstallString", uninstall);
    set(HKEY_LOCAL_MACHINE, path, "InstallLocation", location);
}
