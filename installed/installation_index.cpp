#include "installed/installation_index.h"

#include <set>

#include "platform/ansi_text.h"

namespace {

constexpr std::string_view userDataKey = "User Data Key";

constexpr std::string_view answeredFields[] = {
    "Path",           "Product Id", "Product Name", "Program Folder",
    "Temp Reference", "Lard",       userDataKey,    "Seinda",
};

std::string_view selectedField(int selector) {
    switch (selector) {
        case installation_selector::path:
            return "Path";
        case installation_selector::productId:
            return "Product Id";
        case installation_selector::productName:
            return "Product Name";
        case installation_selector::programFolder:
            return "Program Folder";
        case installation_selector::temporaryReference:
            return "Temp Reference";
        default:
            return {};
    }
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

}  // namespace

void mergeInstallations(std::vector<InstallationRecord>& installations,
                        const std::vector<InstallationRecord>& records) {
    const auto keyOf = [](const InstallationRecord& record) {
        return lowerCase(fieldText(record, "Registry Key"));
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

std::string installationField(const InstallationRecord& record, std::string_view name) {
    for (const std::string_view answered : answeredFields) {
        if (equalIgnoringCase(answered, name)) {
            const bool old = record.legacy && answered == userDataKey;
            return std::string(fieldText(record, old ? oldUserDataKey : answered));
        }
    }
    return {};
}

bool findInstallations(const std::vector<InstallationRecord>& installations, std::string_view value,
                       int selector, std::vector<std::size_t>& matches) {
    matches.clear();
    const std::string_view field = selectedField(selector);
    if (value.empty() || field.empty()) {
        return false;
    }
    const auto comparable = [selector](std::string_view text) {
        return selector == installation_selector::path ? withoutOuterBackslashes(text) : text;
    };
    const std::string wanted = lowerCase(comparable(value));
    for (std::size_t position = installations.size(); position-- > 0;) {
        const std::string_view text = comparable(fieldText(installations[position], field));
        if (text.size() == wanted.size() && lowerCase(text) == wanted) {
            matches.push_back(position);
        }
    }
    return !matches.empty();
}
