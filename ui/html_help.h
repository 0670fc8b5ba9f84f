#pragma once

#include <string>

/// The help file of the program at `programPath`: beside it, with its name, ending in ".chm".
std::string helpFilePath(const std::string& programPath);
