// Stories as one page for a browser, for people who would rather look than read. The page loads
// nothing and runs no script.
#pragma once

#include <string>
#include <vector>

#include "desk/computer/dry_run.h"
#include "desk/computer/machine_description.h"

/// All stories happen on this machine. UTF-8.
[[nodiscard]] std::string storyPage(const std::vector<DryRun>& stories,
                                    const MachineDescription& machine);
