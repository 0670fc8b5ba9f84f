#include "installed/installation_index.h"

#include <set>
#include <tuple>

#include "installed/key_tree_walk.h"
#include "platform/ansi_text.h"

namespace {

constexpr std::string_view userDataKey = "User Data Key";

constexpr std::string_view answeredFields[] = {
    "Path",           "Product Id", "Product Name", "Program Folder",
    "Temp Reference", "Lard",       userDataKey,    "Seinda",
};

/// By installation_selector; empty, which no record has, for any other number.
std::string_view selectedField(int selector) {
    static constexpr std::string_view fields[] = {
        "Path", "Product Id", "Product Name", "Program Folder", "", "Temp Reference",
    };
    return selector >= 0 && selector < std::ssize(fields) ? fields[selector] : std::string_view();
}

std::string_view withoutOuterBackslashes(std::string_view path) {
    while (!path.empty() && path.front() == '\\') {
        path.remove_prefix(1);
    }
    while (!path.empty() && findLastBackslash(path) == path.size() - 1) {
        path.remove_suffix(1);
    }
    return path;
}

/// Appends the records whose "Registry Key" (letter case ignored) is not in the list yet: of two
/// records of one key the first stays.
void mergeInstallations(std::vector<InstallationRecord>& installations,
                        const std::vector<InstallationRecord>& records) {
    const auto keyOf = [](const InstallationRecord& record) {
        return lowerCase(fieldText(record.fields, "Registry Key"));
    };
    std::set<std::string> keys;
    for (const InstallationRecord& installation : installations) {
        keys.insert(keyOf(installation));
    }
    for (const InstallationRecord& record : records) {
        if (keys.insert(keyOf(record)).second) {
            installations.push_back(record);
        }
    }
}

}  // namespace

bool InstallationIndex::load(bool includeLegacy) {
    records.clear();
    std::vector<InstallationRecord> read;
    FieldMap extras;
    readTree(makerTree, read, extras, MergeMode::Current);
    helperLocation = fieldText(extras, "Installation Helper");
    commonPath = fieldText(extras, "Path");
    if (includeLegacy) {
        readTree(olderMakerTree, read, extras, MergeMode::Legacy);
    }
    return !records.empty();
}

bool InstallationIndex::readTree(const std::string& subkeyPath,
                                 std::vector<InstallationRecord>& read, FieldMap& extras,
                                 MergeMode mode) {
    clearWalkError();
    read.clear();
    extras.clear();
    // Kept: what was read before a failure counts.
    std::ignore = walkKeyTree(computer->localMachine().get(), subkeyPath, "HKEY_LOCAL_MACHINE\\",
                              read, extras);
    for (InstallationRecord& record : read) {
        record.legacy = mode == MergeMode::Legacy;
    }
    mergeInstallations(records, read);
    for (InstallationRecord& record : records) {
        std::ignore = readExecutableVersion(record, record.executableVersion);  // else empty
        record.fields["Version"] = record.executableVersion;
    }
    return !records.empty();
}

std::string InstallationIndex::field(std::size_t position, std::string_view name) {
    loadIfEmpty();
    if (position >= records.size()) {
        return {};
    }
    const InstallationRecord& record = records[position];
    for (const std::string_view answered : answeredFields) {
        if (equalIgnoringCase(answered, name)) {
            const bool old = record.legacy && answered == userDataKey;
            return std::string(fieldText(record.fields, old ? oldUserDataKey : answered));
        }
    }
    return {};
}

bool InstallationIndex::find(std::string_view value, int selector,
                             std::vector<std::size_t>& matches) {
    matches.clear();
    if (value.empty()) {
        return false;
    }
    loadIfEmpty();
    const std::string_view field = selectedField(selector);
    const auto comparable = [selector](std::string_view text) {
        return selector == installation_selector::path ? withoutOuterBackslashes(text) : text;
    };
    for (std::size_t position = records.size(); position-- > 0;) {
        const std::string_view text = fieldText(records[position].fields, field);
        if (equalIgnoringCase(comparable(text), comparable(value))) {
            matches.push_back(position);
        }
    }
    return !matches.empty();
}

bool InstallationIndex::readExecutableVersion(const InstallationRecord& record,
                                              std::string& version) const {
    version.clear();
    for (const std::string& path : analyserPaths(record)) {
        std::string fileVersion;
        if (computer->fileVersion(path, fileVersion)) {
            version = versionPart(fileVersion);
            return true;
        }
    }
    return false;
}

void InstallationIndex::loadIfEmpty() {
    if (records.empty()) {
        load(true);
    }
}
