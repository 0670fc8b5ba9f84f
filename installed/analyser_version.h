#pragma once

#include <array>
#include <string>
#include <string_view>

#include "installed/installation_record.h"

/// Where the installation's analyser executable can be, the likelier place first.
std::array<std::string, 2> analyserPaths(const InstallationRecord& record);

/// What follows the last character that is neither a digit nor a point: "Version 12.4.1" gives
/// "12.4.1".
std::string_view versionPart(std::string_view fileVersion);
