// Whether a Windows executable is whole, by what its own headers say.
#pragma once

#include <string>
#include <string_view>
#include <vector>

/// What is wrong with the executable, for people: it is none, was cut off, or was changed after
/// its checksum was set. Empty when it is whole as far as the headers tell; a checksum of 0 is one
/// that was never set.
[[nodiscard]] std::string executableDamage(std::string_view bytes);

/// Whether the executable, which is whole, carries a signature.
[[nodiscard]] bool isSigned(std::string_view bytes);

/// The protections that the executable, which is whole, lacks, for people: random placement, data
/// that cannot be run, code that cannot be written, no exception handlers of its own, awareness of
/// terminal servers, being loaded whole from a disc and from the net, Windows XP as the oldest.
[[nodiscard]] std::vector<std::string> missingProtections(std::string_view bytes);
