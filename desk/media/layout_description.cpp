#include "desk/media/layout_description.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "app/direct_install.h"
#include "app/setup_parameters.h"
#include "catalogue/product_catalogue.h"
#include "desk/media/product_facts.h"
#include "desk/media/release_folder.h"
#include "drivers/driver_installation.h"
#include "platform/ansi_text.h"

namespace {

enum class Kind { Text, Path, Choice };

const std::map<std::string, Kind> kinds = {
    {"installer", Kind::Path},   {"installerName", Kind::Text}, {"build", Kind::Text},
    {"productData", Kind::Text}, {"setup", Kind::Path},         {"flatten", Kind::Path},
    {"uninstaller", Kind::Path}, {"archives", Kind::Path},      {"contents", Kind::Path},
    {"name", Kind::Text},        {"release", Kind::Path},       {"launcher", Kind::Choice}};

}  // namespace

LayoutDescription::LayoutDescription(std::string descriptionFile,
                                     const std::vector<std::string>& settings,
                                     const std::map<std::string, std::string>& forAll)
    : file(std::move(descriptionFile)), document(readJson(file)) {
    requireKnown(document, "the description");
    document.emplace("products", Json::object());
    for (const std::string& setting : settings) {
        set(setting);
    }
    for (const auto& [code, entries] : document.at("products").items()) {
        if (!CProductData().ProductNames.contains(lowerCase(code))) {
            refuse(
                inQuotes(code) +
                " in \"products\" is no product's code; \"installer-tool products\" shows them.");
        }
        requireKnown(entries, "product " + code);
    }
    for (const auto& [key, value] : forAll) {
        if (value.empty()) {
            continue;
        }
        for (Json& entries : document["products"]) {
            entries.erase(key);
        }
        set(key + '=' + value);
    }
}

void LayoutDescription::refuse(const std::string& what) const {
    throw Refusal(inQuotes(file) + ": " + what);
}

void LayoutDescription::requireKnown(const Json& entries, const std::string& where) const {
    if (!entries.is_object()) {
        refuse(where + " is no object.");
    }
    const bool isGeneral = &entries == &document;
    for (const auto& [key, value] : entries.items()) {
        const auto kind = kinds.find(key);
        const bool isKnown =
            key == "products"
                ? isGeneral && value.is_object()
                : kind != kinds.end() && (isGeneral || key != "release") &&
                      (kind->second == Kind::Choice ? value.is_boolean() : value.is_string());
        if (!isKnown) {
            refuse("the entry " + inQuotes(key) + " in " + where +
                   " is not known or of the wrong kind; \"installer-tool layout --example\" shows "
                   "the entries.");
        }
    }
}

void LayoutDescription::set(const std::string& setting) {
    const std::size_t sign = setting.find('='), dot = setting.find('.');
    if (sign == std::string::npos) {
        throw Refusal("The setting " + inQuotes(setting) + " is not KEY=VALUE or CODE.KEY=VALUE.");
    }
    const std::size_t start = dot < sign ? dot + 1 : 0;
    const std::string key = setting.substr(start, sign - start), value = setting.substr(sign + 1);
    // One entry of a product, whatever the letter case of its code.
    std::string code = start == 0 ? "" : setting.substr(0, dot);
    for (const auto& [known, entries] : document.at("products").items()) {
        code = equalIgnoringCase(known, code) ? known : code;
    }
    Json& entries = code.empty() ? document : document["products"][code];
    const Kind kind = kinds.contains(key) ? kinds.at(key) : Kind::Text;
    entries[key] = kind == Kind::Path && !value.empty() ? fs::absolute(value).string() : value;
    if (kind == Kind::Choice && (value == "true" || value == "false")) {
        entries[key] = value == "true";
    }
    requireKnown(entries, inQuotes(setting));
    if (value.empty()) {
        entries.erase(key);
    }
}

Json LayoutDescription::find(const std::string& code, const std::string& key) const {
    for (const auto& [product, entries] : document.at("products").items()) {
        if (equalIgnoringCase(product, code) && entries.contains(key)) {
            return entries[key];
        }
    }
    return document.value(key, Json());
}

std::string LayoutDescription::text(const std::string& code, const std::string& key,
                                    const char* otherwise) const {
    const Json found = find(code, key);
    if (otherwise == nullptr && (found.is_null() || found.get<std::string>().empty())) {
        refuse("there is no entry " + inQuotes(key) + ", which product " + code +
               " needs; add it.");
    }
    return found.is_null() ? otherwise : found.get<std::string>();
}

fs::path LayoutDescription::path(const std::string& code, const std::string& key) const {
    return fs::path(file).parent_path() /
           replaceAll(text(code, key, nullptr), "{code}", folderOf(code), false);
}

bool LayoutDescription::has(const std::string& code, const std::string& key) const {
    const Json found = find(code, key);
    return !found.is_null() && found != false;
}

std::string LayoutDescription::installerName(const std::string& code) const {
    std::string name = text(code, "installerName", installerFile);
    const bool isPlain = std::ranges::all_of(name, [](char character) {
        return character >= ' ' && character <= '~' &&
               std::strchr("\\/:*?\"<>|%", character) == nullptr;
    });
    // Windows starts nothing else, and "install.cmd" is read in another code page than the rest.
    if (!isPlain || name.size() < 5 || !lowerCase(name).ends_with(".exe")) {
        refuse("\"installerName\" is " + inQuotes(name) +
               ", which is no name of a program: letters of English, digits, blanks and signs, "
               "ending in .exe.");
    }
    return name;
}

bool LayoutDescription::isEnciphered(const std::string& code) const {
    const std::string form = text(code, "productData", "enciphered");
    if (form != "enciphered" && form != "plain") {
        refuse("\"productData\" is " + inQuotes(form) + "; it can be \"enciphered\" or \"plain\".");
    }
    return form == "enciphered";
}

fs::path LayoutDescription::source(const std::string& code, const std::string& mediaFile) const {
    return mediaFile == setupUtilityFile             ? path(code, "setup")
           : mediaFile == extractionToolFile         ? path(code, "flatten")
           : mediaFile == replacementUninstallerFile ? path(code, "uninstaller")
                                                     : path(code, "archives") / mediaFile;
}
