// Composing texts: printf-style formatting into strings, and the cut that fixed buffers made.
#pragma once

#include <initializer_list>
#include <string>

#if defined(__GNUC__)
#define FORMAT_TEXT_CHECKED __attribute__((format(printf, 1, 2)))
#else
#define FORMAT_TEXT_CHECKED
#endif

/// The whole formatted text, however long.
[[nodiscard]] FORMAT_TEXT_CHECKED std::string formatText(const char* format, ...);

/// The parts in a row, cut to maximumPathLength characters: composed paths, the dialog's title and
/// every other text that customers know to end there.
[[nodiscard]] std::string composeCut(std::initializer_list<std::string_view> parts);
