#pragma once

#include <vector>

#include "platform/computer.h"

/// Reads `arguments`, the program's path first: "-dir" into `sourceDirectory`, looked up on
/// `computer` and ending in a backslash, and "-installdir" into `installDirectory`, as given; empty
/// where it is missing. The first error ends the reading and is returned.
[[nodiscard]] std::optional<Message> parseCommandLine(const std::vector<std::string>& arguments,
                                                      Computer& computer,
                                                      std::string& sourceDirectory,
                                                      std::string& installDirectory);
