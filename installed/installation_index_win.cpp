#include "installed/installation_index_win.h"

#include <windows.h>

#include <tuple>

#include "installed/installation_record.h"
#include "installed/key_tree_walk_win.h"
#include "platform/file_version_win.h"

namespace {

std::string extraValue(const FieldMap& extras, std::string_view name) {
    const auto extra = extras.find(name);
    return extra == extras.end() ? std::string() : extra->second;
}

}  // namespace

bool InstallationIndex::load(bool includeLegacy) {
    records.clear();
    std::vector<InstallationRecord> read;
    FieldMap extras;
    readTree(makerTree, read, extras, MergeMode::Current);
    helperLocation = extraValue(extras, "Installation Helper");
    commonPath = extraValue(extras, "Path");
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
    std::ignore = walkKeyTree(HKEY_LOCAL_MACHINE, subkeyPath, "HKEY_LOCAL_MACHINE\\", read, extras);
    for (InstallationRecord& record : read) {
        record.legacy = mode == MergeMode::Legacy;
    }
    const std::size_t known = records.size();
    mergeInstallations(records, read);
    for (std::size_t position = known; position < records.size(); ++position) {
        InstallationRecord& record = records[position];
        std::ignore = readExecutableVersion(record, record.executableVersion);  // else empty
        record.fields["Version"] = record.executableVersion;
    }
    return !records.empty();
}

std::string InstallationIndex::field(std::size_t position, std::string_view name) {
    loadIfEmpty();
    return position < records.size() ? installationField(records[position], name) : std::string();
}

bool InstallationIndex::find(std::string_view value, int selector,
                             std::vector<std::size_t>& matches) {
    if (!value.empty()) {
        loadIfEmpty();
    }
    return findInstallations(records, value, selector, matches);
}

bool InstallationIndex::readExecutableVersion(const InstallationRecord& record,
                                              std::string& version) {
    version.clear();
    for (const std::string& path : analyserPaths(record)) {
        std::string fileVersion;
        if (fileVersionText(path, fileVersion)) {
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
