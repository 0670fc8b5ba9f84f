#pragma once

#include <string>
#include <vector>

#include "drivers/driver_package_table.h"

/// Unpacks `packages` from `sourceDirectory` (ends in a backslash) with the extraction tool that
/// lies there, and runs the driver installers that its reports name; each process is waited for.
/// `dataKey` points to 16 characters, may be null. False only when the key is missing; `error` is
/// emptied first and then says so.
[[nodiscard]] bool installDrivers(const std::string& sourceDirectory,
                                  const std::vector<DriverPackage>& packages, const char* dataKey,
                                  std::string& error);
