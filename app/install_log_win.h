#pragma once

#include <string>

/// Appends `line` and a line end (CR LF) to "InstallLog.txt" in "Halvick Test Equipment" under
/// the documents folder of all users; in the current directory when Windows does not know that
/// folder. A file that cannot be opened, or that is not the one meant (install_log.h), is ignored,
/// and the folder is not made: where the maker's products never were, nothing is left behind.
void appendToInstallLog(const std::string& line);
