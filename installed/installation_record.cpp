#include "installed/installation_record.h"

#include "platform/ansi_text.h"
#include "platform/format_text.h"

namespace {

// "Lard" and "Seinda" are the products' own and only carried along.
constexpr std::string_view knownFields[] = {
    "Registry Key",      "Registry Subkey",   "Product Id", "Product Name",
    "Program Folder",    "Installation Path", "Lard",       "Path",
    "Temp Reference",    "User Data Key",     "Seinda",     "Version",
    "Product Character",
};

constexpr std::string_view requiredFields[] = {
    "Product Id", "Product Name", "Program Folder", "Seinda", "Temp Reference",
};

std::string pathBelow(std::string_view folder, const char* relativePath) {
    return composeCut({withTrailingBackslash(folder), relativePath});
}

}  // namespace

InstallationRecord::InstallationRecord() {
    for (const std::string_view name : knownFields) {
        fields.emplace(name, std::string());
    }
}

std::string_view fieldText(const FieldMap& fields, std::string_view name) {
    const auto field = fields.find(name);
    return field == fields.end() ? std::string_view() : field->second;
}

bool isValid(const InstallationRecord& record) {
    for (const std::string_view name : requiredFields) {
        if (fieldText(record.fields, name).empty()) {
            return false;
        }
    }
    return fieldText(record.fields, "Installation Path").empty() !=
           fieldText(record.fields, "Path").empty();
}

void storeValue(InstallationRecord& record, FieldMap& extras, std::string_view name,
                std::string_view text) {
    if (const auto field = record.fields.find(name); field != record.fields.end()) {
        field->second = text;
        return;
    }
    extras.insert_or_assign(std::string(name), std::string(text));
    if (name == oldUserDataKey) {
        // Not a field of every record, yet a legacy one answers from it.
        record.fields.emplace(name, text);
    }
}

std::array<std::string, 2> analyserPaths(const InstallationRecord& record) {
    return {pathBelow(fieldText(record.fields, "Installation Path"), analyser::path),
            pathBelow(fieldText(record.fields, "Path"), analyser::olderPath)};
}

std::string_view versionPart(std::string_view fileVersion) {
    // Without such a character the position is npos, and behind npos comes 0.
    return fileVersion.substr(fileVersion.find_last_not_of("0123456789.") + 1);
}
