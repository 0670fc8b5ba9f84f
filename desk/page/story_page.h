// Stories as one page for a browser, for people who would rather look than read. The page loads
// nothing and runs no script.
#pragma once

#include <string>
#include <vector>

#include "desk/computer/machine.h"
#include "desk/computer/run_story.h"

/// All stories happen on this machine. UTF-8.
[[nodiscard]] std::string storyPage(const std::vector<RunStory>& stories, const Machine& machine);
