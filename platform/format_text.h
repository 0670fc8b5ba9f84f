// printf-style formatting into strings, with the cuts that fixed buffers made.
#pragma once

#include <cstddef>
#include <string>

#if defined(__clang__)
#define FORMAT_TEXT_CHECKED __attribute__((format(printf, 1, 2)))
#elif defined(__GNUC__)
#define FORMAT_TEXT_CHECKED __attribute__((format(gnu_printf, 1, 2)))
#else
#define FORMAT_TEXT_CHECKED
#endif

/// Characters in a composed path, terminator not counted. Mirrors MAX_PATH (minwindef.h).
inline constexpr std::size_t maximumPathLength = 260;

/// The whole formatted text, however long.
[[nodiscard]] FORMAT_TEXT_CHECKED std::string formatText(const char* format, ...);

/// As formatText, cut to maximumPathLength characters: composed paths, the dialog's title and every
/// other text that customers know to end there.
[[nodiscard]] FORMAT_TEXT_CHECKED std::string formatCut(const char* format, ...);
