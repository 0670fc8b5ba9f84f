// A dry run: what an installer will do on a described machine, found out by running the installer's
// own code there, once for each choice that its user has.
#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "desk/computer/described_machine.h"
#include "desk/computer/machine_description.h"
#include "desk/whole_file.h"

/// What was stamped and what lies on the media; in the ANSI code page.
struct DryRunMedia {
    ProductIdentity identity;
    std::string sourceDirectory;          ///< the "-dir" to come
    std::vector<std::string> files = {};  ///< names of those that a run may need and that are there
    /// Name and content of the product-data files beside the installer, in the order in which a run
    /// looks for them; no content: unreadable.
    std::vector<std::pair<std::string, std::optional<std::string>>> productData = {};
};

/// The machine with the media in it, and the installer about to be started.
[[nodiscard]] std::unique_ptr<DescribedMachine> machineWith(const DryRunMedia& media,
                                                            const MachineDescription& description);

/// The run as a document ("run" in docs/formats.md), UTF-8.
[[nodiscard]] Json dryRun(const DryRunMedia& media, const MachineDescription& description);

/// The same in words, without keys of archives.
[[nodiscard]] std::string runInWords(const Json& run);

/// The key that driver archives were packed with is not for whoever is sent a page or a text.
void hideArchiveKeys(std::string& text);
