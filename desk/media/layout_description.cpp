#include "desk/media/layout_description.h"

#include <algorithm>

#include "app/direct_install.h"
#include "app/setup_parameters.h"
#include "catalogue/product_catalogue.h"
#include "desk/media/release_folder.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "drivers/driver_installation.h"
#include "platform/ansi_text.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* keys[] = {"installer", "installerName", "build",       "productData",
                                "setup",     "flatten",       "uninstaller", "archives",
                                "contents",  "name",          "release",     "launcher"};
constexpr const char* pathKeys[] = {"installer", "setup",    "flatten", "uninstaller",
                                    "archives",  "contents", "release"};

bool isOneOf(const std::string& key, const auto& known) {
    return std::find(std::begin(known), std::end(known), key) != std::end(known);
}

}  // namespace

const char* const exampleLayoutDescription =
    R"(// What the media of the products are made of. Paths are relative to this file; "{code}" in a path
// stands for the product's code in lower case.
{
  // The folder that "installer-tool release" made; its installers go to the media byte for byte.
  // Without it, they are made of the built installer, "installer": "build/release/installer.exe".
  "release": "out/release",

  // The installer's name on the media, and whether "install.cmd", which starts it with the right
  // folder, and "autorun.inf" are laid beside it.
  "installerName": "Install.exe",
  "launcher": true,

  // The build that is installed, four numbers, and how the product data are written:
  // "enciphered" (ProductData.inx) or "plain" (ProductData.ini).
  "build": "16.4.12000.0",
  "productData": "enciphered",

  // Where the files of a run lie: "Setup.Exe"; "flatten.exe"; "UninstallQmx.exe"; the folder of the
  // driver archives. Only those that a product needs are looked for.
  "setup": "parts/{code}/Setup.Exe",
  "flatten": "parts/common/flatten.exe",
  "uninstaller": "parts/common/UninstallQmx.exe",
  "archives": "parts/drivers",

  // What differs for a product: any of the entries above but "release"; also "contents", a folder whose files go
  // to the media as they are, and, where installers are made, "name", another name for the title.
  "products": {
    "1k": { "build": "16.4.12001.0" },
    "1w": { "productData": "plain" }
  }
}
)";

LayoutDescription::LayoutDescription(const std::string& descriptionFile,
                                     const std::vector<std::string>& settings)
    : file(descriptionFile), document(readJson(file)) {
    requireKnown(document, "the description");
    document.emplace("products", Json::object());
    for (const std::string& setting : settings) {
        set(setting);
    }
    for (const auto& [code, entries] : document.at("products").items()) {
        if (!CProductData().ProductNames.contains(lowerCase(code))) {
            refuse("\"" + code +
                   "\" in \"products\" is no product's code; \"installer-tool products\" shows "
                   "them.");
        }
        requireKnown(entries, "product " + code);
    }
}

void LayoutDescription::refuse(const std::string& what) const {
    throw Refusal("\"" + file + "\": " + what);
}

void LayoutDescription::requireKnown(const Json& entries, const std::string& where) const {
    if (!entries.is_object()) {
        refuse(where + " is no object.");
    }
    for (const auto& [key, value] : entries.items()) {
        const bool isGeneral = &entries == &document;
        const bool isKnown = key == "products"   ? isGeneral && value.is_object()
                             : key == "launcher" ? value.is_boolean()
                             : key == "release"  ? isGeneral && value.is_string()
                                                 : isOneOf(key, keys) && value.is_string();
        if (!isKnown) {
            refuse("the entry \"" + key + "\" in " + where +
                   " is not known or of the wrong kind; \"installer-tool layout --example\" shows "
                   "the entries.");
        }
    }
}

void LayoutDescription::set(const std::string& setting) {
    const std::size_t sign = setting.find('='), dot = setting.find('.');
    if (sign == std::string::npos) {
        throw Refusal("The setting \"" + setting + "\" is not KEY=VALUE or CODE.KEY=VALUE.");
    }
    const bool isOfProduct = dot < sign;
    const std::string key =
        setting.substr(isOfProduct ? dot + 1 : 0, sign - (isOfProduct ? dot + 1 : 0));
    std::string value = setting.substr(sign + 1);
    if (!value.empty() && isOneOf(key, pathKeys)) {
        value = fs::absolute(value).string();
    }
    // One entry of a product, whatever the letter case of its code.
    std::string code = setting.substr(0, isOfProduct ? dot : 0);
    for (const auto& [known, entries] : document.at("products").items()) {
        code = equalIgnoringCase(known, code) ? known : code;
    }
    Json& entries = isOfProduct ? document["products"][code] : document;
    entries[key] = key == "launcher" && (value == "true" || value == "false")
                       ? Json(value == "true")
                       : Json(value);
    requireKnown(entries, "\"" + setting + '"');
    if (value.empty()) {
        entries.erase(key);
    }
}

void LayoutDescription::setBuild(const std::string& build) {
    document["build"] = build;
    for (Json& entries : document["products"]) {
        entries.erase("build");
    }
}

void LayoutDescription::setRelease(const std::string& folder) {
    document["release"] = fs::absolute(folder).string();
}

void LayoutDescription::setLauncher() {
    document["launcher"] = true;
    for (Json& entries : document["products"]) {
        entries.erase("launcher");
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
    std::string value =
        found.is_null() ? (otherwise == nullptr ? "" : otherwise) : found.get<std::string>();
    if (value.empty() && otherwise == nullptr) {
        refuse("there is no entry \"" + key + "\", which product " + code + " needs; add it.");
    }
    return value;
}

fs::path LayoutDescription::path(const std::string& code, const std::string& key) const {
    return fs::path(file).parent_path() /
           replaceAll(text(code, key, nullptr), "{code}", folderOf(code), false);
}

std::optional<fs::path> LayoutDescription::release() const {
    return document.contains("release") ? std::optional(path("", "release")) : std::nullopt;
}

fs::path LayoutDescription::installer(const std::string& code) const {
    return path(code, "installer");
}

std::string LayoutDescription::installerName(const std::string& code) const {
    std::string name = text(code, "installerName", installerFile);
    const bool isPlain = std::all_of(name.begin(), name.end(), [](char character) {
        return character >= ' ' && character <= '~' &&
               std::string_view("\\/:*?\"<>|%").find(character) == std::string_view::npos;
    });
    // Windows starts nothing else, and "install.cmd" is read in another code page than the rest.
    if (!isPlain || name.size() < 5 || !lowerCase(name).ends_with(".exe")) {
        refuse("\"installerName\" is \"" + name +
               "\", which is no name of a program: letters of English, digits, blanks and signs, "
               "ending in .exe.");
    }
    return name;
}

std::string LayoutDescription::build(const std::string& code) const {
    return text(code, "build", nullptr);
}

bool LayoutDescription::isEnciphered(const std::string& code) const {
    const std::string form = text(code, "productData", "enciphered");
    if (form != "enciphered" && form != "plain") {
        refuse("\"productData\" is \"" + form + "\"; it can be \"enciphered\" or \"plain\".");
    }
    return form == "enciphered";
}

bool LayoutDescription::hasLauncher(const std::string& code) const {
    return find(code, "launcher") == true;
}

std::string LayoutDescription::name(const std::string& code) const {
    return requireWestern(text(code, "name", ""));
}

fs::path LayoutDescription::source(const std::string& code, const std::string& mediaFile) const {
    return mediaFile == setupUtilityFile             ? path(code, "setup")
           : mediaFile == extractionToolFile         ? path(code, "flatten")
           : mediaFile == replacementUninstallerFile ? path(code, "uninstaller")
                                                     : path(code, "archives") / mediaFile;
}

std::optional<fs::path> LayoutDescription::contents(const std::string& code) const {
    return find(code, "contents").is_null() ? std::nullopt : std::optional(path(code, "contents"));
}
