// Paths and texts of the edition that is installed directly.
#pragma once

#include <cstdint>
#include <string>

#include "app/message.h"
#include "app/timestamp.h"
#include "installed/installed_product.h"

inline constexpr char analyserProgram[] = "qmx.exe";

/// Full path of an installed product's analyserProgram, at most 260 characters.
std::string analyserPath(const InstalledProduct& product);

/// The file that exists while an installed product's own uninstaller is at work, at most 260
/// characters.
std::string importMarkerPath(const InstalledProduct& product);

/// `code` is the result of stopping the product's running copies.
Message couldNotStopMessage(const InstalledProduct& product, std::uint32_t code);

/// The install log's line, without a line end, about an uninstaller that could not be copied.
/// `error` is Windows' error code, `time` is UTC.
std::string copyFailedLogLine(const SystemTime& time, const std::string& source,
                              const std::string& target, std::uint32_t error);
