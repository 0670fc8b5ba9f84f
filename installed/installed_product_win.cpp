#include "installed/installed_product_win.h"

#include <windows.h>

#include "catalogue/code_directory.h"
#include "platform/registry_key_win.h"

namespace {

/// Texts of at most 259 characters.
bool readText(const RegistryKey& entry, const char* name, std::string& text) {
    char buffer[260];
    DWORD size = sizeof buffer;
    if (readStringValue(entry.handle.get(), name, buffer, size) != ERROR_SUCCESS) {
        return false;
    }
    text = buffer;
    return true;
}

}  // namespace

bool findInstalledProducts(const std::string& filter, std::vector<InstalledProduct>& products) {
    RegistryKey uninstallList;
    if (uninstallList.open(HKEY_LOCAL_MACHINE, uninstallListKey, KEY_READ) != ERROR_SUCCESS) {
        return false;
    }
    const std::size_t known = products.size();
    for (DWORD index = 0;; ++index) {
        char name[260];
        DWORD nameLength = sizeof name;
        if (RegEnumKeyExA(uninstallList.handle.get(), index, name, &nameLength, nullptr, nullptr,
                          nullptr, nullptr) != ERROR_SUCCESS) {
            return products.size() > known;
        }
        RegistryKey entry;
        InstalledProduct product;
        const auto read = [&entry](const char* valueName, std::string& text) {
            return readText(entry, valueName, text);
        };
        if (entry.open(uninstallList.handle.get(), name, KEY_READ) == ERROR_SUCCESS &&
            readInstalledProduct(read, filter, product)) {
            products.push_back(std::move(product));
        }
    }
}

bool findInstalledMakerProducts(std::vector<InstalledProduct>& products) {
    return findInstalledProducts(makerFilter, products);
}

bool findInstalledProductsFor(int productNumber, std::vector<InstalledProduct>& products) {
    std::string name;
    return findDirectoryName(productNumber, name) && findInstalledProducts(name, products);
}
