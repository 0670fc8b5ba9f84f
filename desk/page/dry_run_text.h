// A dry run in words and as JSON, both in UTF-8.
#pragma once

#include <string>

#include "desk/computer/dry_run.h"
#include "desk/json.h"

[[nodiscard]] std::string dryRunAsText(const DryRun& run);
[[nodiscard]] Json dryRunAsJson(const DryRun& run);

/// A command line for people: without the key that driver archives were packed with.
[[nodiscard]] std::string shownCommand(const ProgramCall& command);

/// The release, its code and the bitness, in words.
[[nodiscard]] std::string systemInWords(const DryRun& run);
