#pragma once

#include <string>
#include <string_view>

#include "app/message.h"

/// The title of the product-type dialog, at most 260 characters.
std::string installTitle(const std::string& productName, const std::string& buildVersion);

Message driversFailedMessage(const std::string& productName, const std::string& error);

/// For a demonstration of a product that has none: the stamp and the catalogue disagree.
Message invalidInstallerMessage(std::string_view productCode);
