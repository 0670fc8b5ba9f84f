#include "desk/media/layout_description.h"

#include <algorithm>

#include "app/direct_install.h"
#include "app/setup_parameters.h"
#include "catalogue/product_catalogue.h"
#include "desk/media/release_folder.h"
#include "desk/refusal.h"
#include "desk/western_text.h"
#include "desk/whole_file.h"
#include "drivers/driver_installation.h"
#include "platform/ansi_text.h"

namespace fs = std::filesystem;

namespace {

constexpr const char* keys[] = {"installer", "installerName", "build",    "productData", "setup",
                                "flatten",   "uninstaller",   "archives", "contents",    "name"};

}  // namespace

const char* const exampleLayoutDescription =
    R"(// What the media of the products are made of. Paths are relative to this file; "{code}" in a path
// stands for the product's code in lower case.
{
  // The built installer, which belongs to no product yet, and its name on the media.
  "installer": "build/release/installer.exe",
  "installerName": "Install.exe",

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

  // What differs for a product: any of the entries above; also "contents", a folder whose files go
  // to the media as they are, and "name", another name for the title.
  "products": {
    "1k": { "build": "16.4.12001.0" },
    "1w": { "productData": "plain" }
  }
}
)";

LayoutDescription::LayoutDescription(const std::string& descriptionFile) : file(descriptionFile) {
    try {
        document = Json::parse(readInput(file), nullptr, true, true);
    } catch (const Json::exception& error) {
        throw Refusal("\"" + file + "\" is no JSON: " + error.what() +
                      ". \"installer-tool layout --example\" prints a description.");
    }
    const auto requireKnown = [this](const Json& entries, const std::string& where) {
        if (!entries.is_object()) {
            throw Refusal("\"" + file + "\": " + where + " is no object.");
        }
        for (const auto& [key, value] : entries.items()) {
            if (key == "products" && &entries == &document) {
                continue;
            }
            if (std::find(std::begin(keys), std::end(keys), key) == std::end(keys) ||
                !value.is_string()) {
                throw Refusal("\"" + file + "\": the entry \"" + key + "\" in " + where +
                              " is not known or is no text; \"installer-tool layout --example\" "
                              "shows the entries.");
            }
        }
    };
    requireKnown(document, "the description");
    if (document.contains("products")) {
        if (!document["products"].is_object()) {
            throw Refusal("\"" + file + "\": \"products\" is no object.");
        }
        const CProductData catalogue;
        for (const auto& [code, entries] : document["products"].items()) {
            if (!catalogue.ProductNames.contains(lowerCase(code))) {
                throw Refusal("\"" + file + "\": \"" + code +
                              "\" in \"products\" is no product's "
                              "code; \"installer-tool products\" shows them.");
            }
            requireKnown(entries, "product " + code);
        }
    }
}

std::optional<std::string> LayoutDescription::find(const std::string& code,
                                                   const std::string& key) const {
    if (document.contains("products")) {
        for (const auto& [product, entries] : document["products"].items()) {
            if (equalIgnoringCase(product, code) && entries.contains(key)) {
                return entries[key].get<std::string>();
            }
        }
    }
    return document.contains(key) ? std::optional(document[key].get<std::string>()) : std::nullopt;
}

std::string LayoutDescription::require(const std::string& code, const std::string& key) const {
    const std::optional<std::string> text = find(code, key);
    if (!text || text->empty()) {
        throw Refusal("\"" + file + "\" has no entry \"" + key + "\", which product " + code +
                      " needs; add it.");
    }
    return *text;
}

fs::path LayoutDescription::path(const std::string& code, std::string text) const {
    constexpr std::string_view placeholder = "{code}";
    for (std::size_t found; (found = text.find(placeholder)) != std::string::npos;) {
        text.replace(found, placeholder.size(), folderOf(code));
    }
    return fs::path(file).parent_path() / text;
}

fs::path LayoutDescription::installer(const std::string& code) const {
    return path(code, require(code, "installer"));
}

std::string LayoutDescription::installerName(const std::string& code) const {
    const std::string name = find(code, "installerName").value_or(installerFile);
    if (name.empty() || name.find_first_of("/\\") != std::string::npos) {
        throw Refusal("\"" + file + "\": \"installerName\" is \"" + name +
                      "\", which is no file's name.");
    }
    return name;
}

std::string LayoutDescription::build(const std::string& code) const {
    return require(code, "build");
}

bool LayoutDescription::isEnciphered(const std::string& code) const {
    const std::string form = find(code, "productData").value_or("enciphered");
    if (form != "enciphered" && form != "plain") {
        throw Refusal("\"" + file + "\": \"productData\" is \"" + form +
                      "\"; it can be \"enciphered\" or \"plain\".");
    }
    return form == "enciphered";
}

std::string LayoutDescription::name(const std::string& code) const {
    return fromUtf8(find(code, "name").value_or(""));
}

fs::path LayoutDescription::source(const std::string& code, const std::string& mediaFile) const {
    if (mediaFile == setupUtilityFile) {
        return path(code, require(code, "setup"));
    }
    if (mediaFile == extractionToolFile) {
        return path(code, require(code, "flatten"));
    }
    if (mediaFile == replacementUninstallerFile) {
        return path(code, require(code, "uninstaller"));
    }
    return path(code, require(code, "archives")) / mediaFile;
}

std::optional<fs::path> LayoutDescription::contents(const std::string& code) const {
    const std::optional<std::string> folder = find(code, "contents");
    return folder ? std::optional(path(code, *folder)) : std::nullopt;
}
