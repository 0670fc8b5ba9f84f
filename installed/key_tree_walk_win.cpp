#include "installed/key_tree_walk_win.h"

#include <tuple>

#include "platform/ansi_text.h"
#include "platform/format_text.h"
#include "platform/registry_key.h"
#include "platform/registry_key_win.h"

namespace {

// For names and for data, in bytes. On the heap: the walk goes as deep as the tree.
constexpr DWORD bufferSize = 1024;

char lastError[2049] = "";  // terminator included

void setWalkError(std::string_view description) {
    lastError[description.copy(lastError, sizeof lastError - 1)] = '\0';
}

std::string quoted(const std::string& path) {
    return '"' + path + '"';
}

bool readValues(HKEY key, InstallationRecord& record, FieldMap& extras) {
    std::string name(bufferSize, '\0');
    std::string data(bufferSize, '\0');
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = bufferSize;
        DWORD dataSize = bufferSize;
        const LSTATUS result = RegEnumValueA(key, index, name.data(), &nameLength, nullptr, nullptr,
                                             reinterpret_cast<BYTE*>(data.data()), &dataSize);
        if (result == ERROR_SUCCESS) {
            storeValue(record, extras, name.c_str(), textOfData(data.data(), dataSize));
        } else if (index == 0) {
            // Kept: a first value that cannot be read does not cost the key its record, a later
            // one does.
            continue;
        } else if (result == ERROR_NO_MORE_ITEMS) {
            return true;
        } else {
            // Kept: the number is the thread's last error, not what the call returned.
            setWalkError(
                formatText("RegEnumValue failed with %d.", static_cast<int>(GetLastError())));
            return false;
        }
    }
}

bool readLeaf(HKEY key, const std::string& subkeyName, const std::string& path,
              std::vector<InstallationRecord>& records, FieldMap& extras) {
    InstallationRecord record;
    if (!readValues(key, record, extras)) {
        return false;
    }
    appendIfValid(std::move(record), path, subkeyName, records);
    return true;
}

bool walkSubkeys(HKEY key, const std::string& path, std::vector<InstallationRecord>& records,
                 FieldMap& extras) {
    std::string name(bufferSize, '\0');
    for (DWORD index = 0;; ++index) {
        DWORD nameLength = bufferSize;
        const LSTATUS result =
            RegEnumKeyExA(key, index, name.data(), &nameLength, nullptr, nullptr, nullptr, nullptr);
        if (result == ERROR_NO_MORE_ITEMS) {
            return true;
        }
        if (result != ERROR_SUCCESS) {
            setWalkError(index == 0 ? "Could not enumerate key " + quoted(path)
                                    : "Error enumerating key " +
                                          quoted(withTrailingBackslash(path) + name.c_str()));
            return false;
        }
        std::ignore = walkKeyTree(key, name.c_str(), path, records, extras);
    }
}

}  // namespace

bool walkKeyTree(HKEY parent, const std::string& subkeyName, const std::string& parentPath,
                 std::vector<InstallationRecord>& records, FieldMap& extras) {
    if (parent == nullptr || subkeyName.empty()) {
        return false;
    }
    const std::string path = withTrailingBackslash(parentPath) + subkeyName;
    RegistryKey key;
    if (key.open(parent, subkeyName.c_str(), KEY_READ) != ERROR_SUCCESS) {
        setWalkError("Could not open registry key " + quoted(path));
        return false;
    }
    DWORD subkeyCount = 0;
    DWORD valueCount = 0;
    if (RegQueryInfoKeyA(key.handle.get(), nullptr, nullptr, nullptr, &subkeyCount, nullptr,
                         nullptr, &valueCount, nullptr, nullptr, nullptr,
                         nullptr) != ERROR_SUCCESS) {
        setWalkError("Could not query key " + quoted(path));
        return false;
    }
    if (subkeyCount != 0) {
        return walkSubkeys(key.handle.get(), path, records, extras);
    }
    return valueCount != 0 && readLeaf(key.handle.get(), subkeyName, path, records, extras);
}

const char* walkError() {
    return lastError;
}

void clearWalkError() {
    setWalkError({});
}
