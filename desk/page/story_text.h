// A story in words and as JSON, both in UTF-8.
#pragma once

#include <string>

#include "desk/computer/run_story.h"
#include "desk/json.h"

[[nodiscard]] std::string storyAsText(const RunStory& story);
[[nodiscard]] Json storyAsJson(const RunStory& story);

/// A command line for people: without the key that driver archives were packed with.
[[nodiscard]] std::string shownCommand(const StoryCommand& command);

/// The release, its code and the bitness, in words.
[[nodiscard]] std::string systemInWords(const RunStory& story);
