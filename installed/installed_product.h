// Installed versions of the products, as the platform's uninstall list describes them.
#pragma once

#include <vector>

#include "platform/registry_key.h"

struct InstalledProduct {
    std::string displayName;
    std::string uninstallString;  ///< command line of the uninstaller, not parsed
    std::string installLocation;  ///< at most 259 characters
};

/// Below HKEY_LOCAL_MACHINE, in the program's own registry view: the products' installers are
/// 32-bit programs too.
inline constexpr char uninstallListKey[] =
    "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall";

/// Part of the display names of all products of the maker.
inline constexpr char makerFilter[] = "Halvick";

/// Why an entry of the list is not reported.
enum class EntryState {
    Reported,
    NoDisplayName,
    OtherProduct,  ///< the display name does not contain the filter, letter case counts
    NoVersion,     ///< none, or not one of four fields
    TooOld,        ///< the first number of the version is not above 10
    NoUninstaller,
    NoInstallLocation,
};

/// Reads an entry into `product`. Texts of other types, without a terminator or of more than 259
/// characters count as missing.
[[nodiscard]] EntryState readEntry(const KeyReader& entry, std::string_view filter,
                                   InstalledProduct& product);

// Each function appends to `products`, in the registry's order, and returns whether it appended
// anything; nothing is told to the user.

/// Every version whose display name contains `filter`.
[[nodiscard]] bool findInstalledProducts(const KeyReader& localMachine, const std::string& filter,
                                         std::vector<InstalledProduct>& products);

/// Every version of any product of the maker.
[[nodiscard]] bool findInstalledMakerProducts(const KeyReader& localMachine,
                                              std::vector<InstalledProduct>& products);

/// The versions of the product with this number, found by the name that the code directory has
/// for it; false without a look at the registry when it has none.
[[nodiscard]] bool findInstalledProductsFor(const KeyReader& localMachine, int productNumber,
                                            std::vector<InstalledProduct>& products);
