// What a run does for a product, decided once and for all before it does anything. The install
// sequence walks this value; the release engineer's tools tell the same value beforehand.
#pragma once

#include "catalogue/product_catalogue.h"
#include "drivers/driver_package_table.h"
#include "ui/product_type.h"

/// The way through the install sequence.
enum class Route {
    Direct,          ///< the free viewer: nothing is asked
    EndSilently,     ///< nothing is installed and nothing said; the families' media rely on it
    HardwareFamily,  ///< drivers, then the choice of the product type
    Ordinary,        ///< older versions, then drivers or the choice of the product type
};

/// Whose installed versions are looked for and offered for removal.
enum class OlderVersions { Leave, OfProduct, OfMaker };

struct InstallPlan {
    Route route = Route::Ordinary;
    int productNumber = -1;  ///< -1 for a code that is none
    OlderVersions olderVersions = OlderVersions::Leave;
    /// The drivers' family, within the table that the plan was made from; null for none. Its
    /// packages come before the choice of the product type or, on the ordinary route, in its place.
    const DeviceFamily* deviceFamily = nullptr;
    /// What the user may choose from, bits of product_type; none: the live product is taken
    /// without a question.
    unsigned offeredTypes = 0;
};

/// `productCode` as stamped. The plan refers to `drivers`.
[[nodiscard]] InstallPlan planInstallation(std::string_view productCode,
                                           const CProductData& catalogue,
                                           const DriverPackageTable& drivers);
