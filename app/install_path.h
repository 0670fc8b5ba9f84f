// Which way through the install sequence a product takes.
#pragma once

#include <string_view>

#include "drivers/driver_package_table.h"

enum class InstallPath {
    Ordinary,        ///< older versions first, then drivers
    HardwareFamily,  ///< drivers first, no look for older versions
    EndSilently,     ///< nothing is installed and nothing said; the family's media rely on it
};

/// The free protocol viewer: installed without a question and without drivers.
bool isDirectInstallEdition(std::string_view productCode);

/// `family` is the product's device family, null for none.
InstallPath installPath(const DeviceFamily* family);

/// On the ordinary path: the family's drivers are installed, and with them the choice of the
/// product type falls away.
bool isLiveOnly(const DeviceFamily* family);

/// The multiprotocol product replaces every product of the maker; any other only its own versions.
bool replacesMakerProducts(int productNumber);
