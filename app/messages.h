// The texts that the install sequence shows.
#pragma once

#include "installed/installed_product.h"
#include "platform/message.h"

/// The title of the "Install Product" dialog, at most 260 characters.
[[nodiscard]] std::string installTitle(const std::string& productName,
                                       const std::string& buildVersion);

[[nodiscard]] Message driversFailedMessage(const std::string& productName,
                                           const std::string& error);

/// For a demonstration of a product that has none: the stamp and the catalogue disagree.
[[nodiscard]] Message invalidInstallerMessage(std::string_view productCode);

/// `setupPath` is where "Setup.Exe" should be.
[[nodiscard]] Message setupMissingMessage(const std::string& setupPath);

/// `code` is the result of stopping the product's running copies.
[[nodiscard]] Message couldNotStopMessage(const InstalledProduct& product, std::uint32_t code);
