#pragma once

#include <windows.h>

#include <gtest/gtest.h>
#include <shlwapi.h>

#include <algorithm>
#include <string>

#include "installed/installation_record.h"
#include "tests/installed/sample_record.h"

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
        const HKEY target = create(key);
        // In the wide form, as the narrow one adds terminators. A zero behind the data would be
        // taken into it.
        const std::wstring wide = widened(data) + L'x';
        const bool isText = type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
        const auto bytes = reinterpret_cast<const BYTE*>(data.data());
        EXPECT_EQ(RegSetValueExW(target, widened(name).c_str(), 0, type,
                                 isText ? reinterpret_cast<const BYTE*>(wide.data()) : bytes,
                                 static_cast<DWORD>(isText ? (wide.size() - 1) * sizeof(wchar_t)
                                                           : data.size())),
                  ERROR_SUCCESS);
        RegCloseKey(target);
    }
    void setText(const std::string& key, const std::string& name, const std::string& text) const {
        setValue(key, name, REG_SZ, text + '\0');
    }
    /// As an installation would.
    void setRecord(const std::string& key) const {
        for (const auto& [name, text] : sampleRecord().fields) {
            if (!text.empty()) {
                setText(key, name, text);
            }
        }
    }
    void createKey(const std::string& key) const { RegCloseKey(create(key)); }

  private:
    /// Level by level: one call takes no more than 260 characters.
    HKEY create(const std::string& key) const {
        HKEY parent = root;
        for (size_t from = 0; from < key.size();) {
            const size_t to = std::min(key.find('\\', from), key.size());
            HKEY child = nullptr;
            RegCreateKeyA(parent, key.substr(from, to - from).c_str(), &child);
            if (parent != root) {
                RegCloseKey(parent);
            }
            parent = child;
            from = to + 1;
        }
        return parent;
    }

    static std::wstring widened(const std::string& text) {
        std::wstring wide(text.size(), L'\0');
        const int size = static_cast<int>(text.size());
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size);
        return wide;
    }

    static constexpr const char* path = "Software\\Installer Test";
    const HKEY root;
    HKEY own = nullptr;  ///< open as long as it stands in for the root
};
