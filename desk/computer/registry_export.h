// What regedit exports: its text format, from "REGEDIT4" and from "Version 5.00".
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "desk/computer/described_registry.h"

/// Whether the bytes are the beginning of such an export, in any of its encodings.
[[nodiscard]] bool isRegistryExport(std::string_view content);

/// Reads an export of any content into `keys`, on top of what is there; keys of other roots are
/// passed over. `problems` gets a line for each line that is not understood, at most twenty.
void readRegistryExport(std::string_view content, RegistryKeys& keys,
                        std::vector<std::string>& problems);
