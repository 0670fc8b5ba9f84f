#pragma once

#include <string>

/// What Computer promises of fileVersion.
[[nodiscard]] bool fileVersionText(const std::string& path, std::string& text);
