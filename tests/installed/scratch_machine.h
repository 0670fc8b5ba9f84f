#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <shlwapi.h>

#include <algorithm>
#include <string>

/// While it lives, HKEY_LOCAL_MACHINE leads this process to an empty key of the test's own.
class ScratchMachine {
  public:
    ScratchMachine() {
        path = "Software\\Installer Test " + std::to_string(GetCurrentProcessId());
        EXPECT_EQ(RegCreateKeyA(HKEY_CURRENT_USER, path.c_str(), &root), ERROR_SUCCESS);
        EXPECT_EQ(RegOverridePredefKey(HKEY_LOCAL_MACHINE, root), ERROR_SUCCESS);
    }
    ~ScratchMachine() {
        RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        RegCloseKey(root);
        SHDeleteKeyA(HKEY_CURRENT_USER, path.c_str());
    }
    ScratchMachine(const ScratchMachine&) = delete;
    ScratchMachine& operator=(const ScratchMachine&) = delete;

    void createKey(const std::string& key) const { RegCloseKey(opened(key)); }

    /// Stores exactly these characters; a terminator only when `data` has one.
    void setValue(const std::string& key, const std::string& name, DWORD type,
                  const std::string& data) const {
        const HKEY target = opened(key);
        const bool text = type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
        // A zero behind the data would be taken into it.
        const std::wstring wide = widened(data) + L'x';
        const void* bytes = text ? static_cast<const void*>(wide.data()) : data.data();
        const auto size =
            static_cast<DWORD>(text ? (wide.size() - 1) * sizeof(wchar_t) : data.size());
        EXPECT_EQ(RegSetValueExW(target, widened(name).c_str(), 0, type,
                                 static_cast<const BYTE*>(bytes), size),
                  ERROR_SUCCESS);
        RegCloseKey(target);
    }

    void setText(const std::string& key, const std::string& name, const std::string& text) const {
        setValue(key, name, REG_SZ, text + '\0');
    }

  private:
    /// Level by level: one call takes no more than 260 characters.
    static HKEY opened(const std::string& key) {
        HKEY parent = HKEY_LOCAL_MACHINE;
        for (std::size_t from = 0; from < key.size();) {
            const std::size_t to = std::min(key.find('\\', from), key.size());
            HKEY child = nullptr;
            EXPECT_EQ(RegCreateKeyA(parent, key.substr(from, to - from).c_str(), &child),
                      ERROR_SUCCESS);
            if (parent != HKEY_LOCAL_MACHINE) {
                RegCloseKey(parent);
            }
            parent = child;
            from = to + 1;
        }
        return parent;
    }

    static std::wstring widened(const std::string& text) {
        std::wstring wide(text.size(), L'\0');
        const int length =
            MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                                static_cast<int>(wide.size()));
        wide.resize(static_cast<std::size_t>(length));
        return wide;
    }

    std::string path;
    HKEY root = nullptr;
};
