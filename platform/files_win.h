#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "platform/files.h"

/// One query of the attributes; whatever makes it fail counts as Inaccessible.
[[nodiscard]] PathKind examinePath(const std::string& path);

/// Whether the folder of `path` lists it: also true of a file that lets nobody look at it, so that
/// it is found, and then reported as unreadable.
[[nodiscard]] bool isListed(const std::string& path);

/// Full path of the running program, at most 1023 characters; empty when Windows does not say.
[[nodiscard]] std::string runningProgramPath();

/// All bytes of a file of at most maximumFileSize bytes, opened without denying others any access;
/// nothing when it cannot be opened or read to its end.
[[nodiscard]] std::optional<std::string> readFileContent(const std::string& path);

/// Copies over `target`, a read-only one as well; the copy is not read-only, whatever `source` is.
/// Returns the Windows error code.
[[nodiscard]] DWORD copyOverFile(const std::string& source, const std::string& target);
