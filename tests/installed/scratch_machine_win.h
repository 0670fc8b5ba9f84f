#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <shlwapi.h>

#include <string>

/// While it lives, a root of the registry leads this process to an empty key of the test's own.
class ScratchMachine {
  public:
    explicit ScratchMachine(HKEY root = HKEY_LOCAL_MACHINE) : root(root) {
        RegCreateKeyA(HKEY_CURRENT_USER, path, &own);
        EXPECT_EQ(RegOverridePredefKey(root, own), ERROR_SUCCESS);
    }
    ~ScratchMachine() {
        RegOverridePredefKey(root, nullptr);
        RegCloseKey(own);
        SHDeleteKeyA(HKEY_CURRENT_USER, path);
    }
    ScratchMachine(const ScratchMachine&) = delete;
    ScratchMachine& operator=(const ScratchMachine&) = delete;

    /// Stores exactly these characters; a terminator only when `data` has one.
    void setValue(const std::string& key, const std::string& name, DWORD type,
                  const std::string& data) const {
        // Texts in the wide form, as the narrow one adds terminators. A zero behind the data would
        // be taken into it.
        const std::wstring wide = widened(data) + L'x';
        const bool isText = type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
        const void* const bytes = isText ? static_cast<const void*>(wide.data()) : data.data();
        const HKEY target = create(key);
        EXPECT_EQ(
            RegSetValueExW(target, widened(name).c_str(), 0, type, static_cast<const BYTE*>(bytes),
                           static_cast<DWORD>(data.size() * (isText ? sizeof(wchar_t) : 1))),
            ERROR_SUCCESS);
        RegCloseKey(target);
    }
    void createKey(const std::string& key) const { RegCloseKey(create(key)); }

  private:
    HKEY create(const std::string& key) const {
        HKEY created = nullptr;
        EXPECT_EQ(RegCreateKeyA(root, key.c_str(), &created), ERROR_SUCCESS);
        return created;
    }
    /// Of ASCII alone.
    static std::wstring widened(const std::string& text) { return {text.begin(), text.end()}; }

    static constexpr const char* path = "Software\\Installer Test";
    const HKEY root;
    HKEY own = nullptr;  ///< open as long as it stands in for the root
};
