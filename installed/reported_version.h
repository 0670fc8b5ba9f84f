#pragma once

#include <string_view>

/// Whether an installed version is reported: its text keeps the four-field rule and its first
/// number is above 10.
bool isReportedVersion(std::string_view displayVersion);
