// Where the analyser is within an installation of any product.
#pragma once

namespace analyser {
inline constexpr char program[] = "qmx.exe";
/// Relative to the install location.
inline constexpr char path[] = "Executables\\Core\\qmx.exe";
/// Relative to the "Path" of installations that the older generation of installers made.
inline constexpr char olderPath[] = "bin\\release\\qmx.exe";
}  // namespace analyser
