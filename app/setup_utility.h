#pragma once

#include <string>

/// Finds "Setup.Exe" in `sourceDirectory` (ends in a backslash). False when it is missing, after
/// a message box titled `applicationName`. `path` is at most 260 characters.
bool locateSetupUtility(const std::string& sourceDirectory, const char* applicationName,
                        std::string& path);
