// The files of Windows: what Computer promises of pathKind, isListed, programPath, fileContent,
// copyFile and fileVersion holds for these.
#pragma once

#include <windows.h>

#include <optional>

#include "platform/files.h"

[[nodiscard]] PathKind examinePath(const std::string& path);

[[nodiscard]] bool isListed(const std::string& path);

[[nodiscard]] std::string runningProgramPath();

/// Opened without denying others any access.
[[nodiscard]] std::optional<std::string> readFileContent(const std::string& path);

/// Copies over a read-only `target` as well.
[[nodiscard]] DWORD copyOverFile(const std::string& source, const std::string& target);

[[nodiscard]] bool fileVersionText(const std::string& path, std::string& text);
