// The product-data file, as the release engineer writes it.
#pragma once

#include <string>
#include <string_view>

/// Makes CR LF of every bare line feed; true when there was one.
bool endLinesAsWindowsDoes(std::string& text);

/// The build that a run reads from the file's text. Throws Refusal, which names `file`, when there
/// is none.
[[nodiscard]] std::string buildIn(std::string_view text, const std::string& file);

/// The text of a product-data file that gives this build.
[[nodiscard]] std::string productDataOf(std::string_view build);

/// Why the build cannot be handed over, for people: "Setup.Exe" is handed it in a field that a
/// backquote ends, and it becomes a part of a folder's name. Empty when it can.
[[nodiscard]] std::string buildFault(std::string_view build);
