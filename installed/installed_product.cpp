#include "installed/installed_product.h"

#include <utility>

#include "catalogue/code_directory.h"
#include "platform/version_number.h"

namespace {

// Kept: the oldest generation of the family stays out of the prompt.
constexpr int newestUnreported = 10;

constexpr std::size_t bufferSize = 260;

bool readText(const KeyReader& entry, const char* name, std::string& text) {
    char buffer[bufferSize];
    unsigned long size = sizeof buffer;
    if (readStringValue(entry, name, buffer, size) != errorSuccess) {
        return false;
    }
    text = buffer;
    return true;
}

}  // namespace

EntryState readEntry(const KeyReader& entry, std::string_view filter, InstalledProduct& product) {
    if (!readText(entry, "DisplayName", product.displayName)) {
        return EntryState::NoDisplayName;
    }
    if (product.displayName.find(filter) == std::string::npos) {
        return EntryState::OtherProduct;
    }
    std::string version;
    std::vector<int> numbers;
    if (!readText(entry, "DisplayVersion", version) || !parseVersion(version, numbers)) {
        return EntryState::NoVersion;
    }
    if (numbers.front() <= newestUnreported) {
        return EntryState::TooOld;
    }
    if (!readText(entry, "UninstallString", product.uninstallString)) {
        return EntryState::NoUninstaller;
    }
    return readText(entry, "InstallLocation", product.installLocation)
               ? EntryState::Reported
               : EntryState::NoInstallLocation;
}

bool findInstalledProducts(const KeyReader& localMachine, const std::string& filter,
                           std::vector<InstalledProduct>& products) {
    std::unique_ptr<KeyReader> list;
    if (localMachine.openSubkey(uninstallListKey, list) != errorSuccess) {
        return false;
    }
    const std::size_t known = products.size();
    for (unsigned long index = 0;; ++index) {
        char name[bufferSize];
        unsigned long nameSize = sizeof name;
        if (list->enumerateSubkey(index, name, nameSize) != errorSuccess) {
            return products.size() > known;
        }
        std::unique_ptr<KeyReader> entry;
        InstalledProduct product;
        if (list->openSubkey(name, entry) == errorSuccess &&
            readEntry(*entry, filter, product) == EntryState::Reported) {
            products.push_back(std::move(product));
        }
    }
}

bool findInstalledMakerProducts(const KeyReader& localMachine,
                                std::vector<InstalledProduct>& products) {
    return findInstalledProducts(localMachine, makerFilter, products);
}

bool findInstalledProductsFor(const KeyReader& localMachine, int productNumber,
                              std::vector<InstalledProduct>& products) {
    std::string name;
    return findDirectoryName(productNumber, name) &&
           findInstalledProducts(localMachine, name, products);
}
