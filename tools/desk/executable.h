// Whether a Windows executable is whole, by what its own headers say.
#pragma once

#include <string>
#include <string_view>

/// What is wrong with the executable, for people: it is none, was cut off, or was changed after
/// its checksum was set. Empty when it is whole as far as the headers tell; a checksum of 0 is one
/// that was never set.
[[nodiscard]] std::string executableDamage(std::string_view image);
