#pragma once

#include <string>

/// The help file of the program at `programPath`: beside it, with its name, ending in ".chm".
[[nodiscard]] std::string helpFilePath(const std::string& programPath);

/// The full path that the help control is registered under, from the registry's type (winnt.h) and
/// text. In a text of the expandable type %name% stands for `variable(name)`, or for itself where
/// that is empty. Empty for anything but a full path: any other would be looked for beside the
/// installer first, where anybody may have put one.
[[nodiscard]] std::string registeredControlPath(unsigned long type, const std::string& text,
                                                std::string (*variable)(const std::string& name));
