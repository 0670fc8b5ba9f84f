// Where the analyser is within an installation of any product.
#pragma once

#define ANALYSER_PROGRAM "qmx.exe"

namespace analyser {
inline constexpr char program[] = ANALYSER_PROGRAM;
/// Relative to the install location.
inline constexpr char path[] = "Executables\\Core\\" ANALYSER_PROGRAM;
/// Relative to the "Path" of installations that the older generation of installers made.
inline constexpr char olderPath[] = "bin\\release\\" ANALYSER_PROGRAM;
}  // namespace analyser

#undef ANALYSER_PROGRAM
