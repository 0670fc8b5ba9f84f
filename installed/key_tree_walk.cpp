#include "installed/key_tree_walk.h"

#include <tuple>
#include <utility>

#include "platform/ansi_text.h"
#include "platform/format_text.h"

namespace {

// For names and for data, in bytes. On the heap: the walk goes as deep as the tree.
constexpr unsigned long bufferSize = 1024;

char lastError[2049];  // terminator included

void setWalkError(std::string_view description) {
    lastError[description.copy(lastError, sizeof lastError - 1)] = '\0';
}

std::string quoted(const std::string& path) {
    return '"' + path + '"';
}

bool readValues(const KeyReader& key, InstallationRecord& record, FieldMap& extras) {
    std::string name(bufferSize, '\0');
    std::string data(bufferSize, '\0');
    for (unsigned long index = 0;; ++index) {
        unsigned long nameSize = bufferSize;
        unsigned long dataSize = bufferSize;
        const std::uint32_t result =
            key.enumerateValue(index, name.data(), nameSize, data.data(), dataSize);
        if (result == errorSuccess) {
            storeValue(record, extras, name.c_str(), textOfData(data.data(), dataSize));
        } else if (index != 0) {
            // Kept: a first value that cannot be read costs the key no record, a later one does.
            if (result != errorNoMoreItems) {
                // Kept: the number is the thread's last error, not what the call returned.
                setWalkError(
                    formatText("RegEnumValue failed with %d.", static_cast<int>(key.lastError())));
            }
            return result == errorNoMoreItems;
        }
    }
}

bool walkSubkeys(const KeyReader& key, const std::string& path,
                 std::vector<InstallationRecord>& records, FieldMap& extras) {
    std::string name(bufferSize, '\0');
    for (unsigned long index = 0;; ++index) {
        unsigned long nameSize = bufferSize;
        const std::uint32_t result = key.enumerateSubkey(index, name.data(), nameSize);
        if (result == errorNoMoreItems) {
            return true;
        }
        if (result != errorSuccess) {
            setWalkError(index == 0 ? "Could not enumerate key " + quoted(path)
                                    : "Error enumerating key " +
                                          quoted(withTrailingBackslash(path) + name.c_str()));
            return false;
        }
        std::ignore = walkKeyTree(&key, name.c_str(), path, records, extras);
    }
}

}  // namespace

bool walkKeyTree(const KeyReader* parent, const std::string& subkeyName,
                 const std::string& parentPath, std::vector<InstallationRecord>& records,
                 FieldMap& extras) {
    if (parent == nullptr || subkeyName.empty()) {
        return false;
    }
    const std::string path = withTrailingBackslash(parentPath) + subkeyName;
    std::unique_ptr<KeyReader> key;
    if (parent->openSubkey(subkeyName.c_str(), key) != errorSuccess) {
        setWalkError("Could not open registry key " + quoted(path));
        return false;
    }
    unsigned long subkeys = 0;
    unsigned long values = 0;
    if (key->count(subkeys, values) != errorSuccess) {
        setWalkError("Could not query key " + quoted(path));
        return false;
    }
    if (subkeys != 0) {
        return walkSubkeys(*key, path, records, extras);
    }
    InstallationRecord record;
    if (values == 0 || !readValues(*key, record, extras)) {
        return false;
    }
    if (isValid(record)) {
        record.fields["Registry Key"] = path;
        record.fields["Registry Subkey"] = subkeyName;
        records.push_back(std::move(record));
    }
    return true;
}

const char* walkError() {
    return lastError;
}

void clearWalkError() {
    setWalkError({});
}
